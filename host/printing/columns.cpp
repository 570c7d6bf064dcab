#include "host/printing/columns.h"

using namespace Qt::Literals::StringLiterals;

namespace columns {

namespace {

// Takes whole lines off a word that is longer than one.
void breakWord(QString &word, QStringList &lines, int width)
{
    while (word.size() > width) {
        lines.append(word.left(width));
        word.remove(0, width);
    }
}

} // namespace

QStringList wrapped(const QString &text, int width)
{
    QStringList lines;
    QString line;
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    for (QString word : words) {
        const QString longer = line.isEmpty() ? word : QString(line + u' ' + word);
        if (longer.size() <= width) {
            line = longer;
            continue;
        }
        if (!line.isEmpty())
            lines.append(line);
        breakWord(word, lines, width);
        line = word;
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

QString spread(const QString &left, const QString &right, int width)
{
    const qsizetype gap = width - left.size() - right.size();
    if (gap > 0)
        return left + QString(gap, u' ') + right;
    return wrapped(left, width).join(u'\n') + u'\n' + right.rightJustified(width, u' ');
}

QString centred(const QString &text, int width)
{
    const qsizetype margin = qMax(qsizetype{0}, (width - text.size()) / 2);
    return QString(margin, u' ') + text;
}

} // namespace columns
