#include "tests/powercut/documentbooks.h"

using namespace Qt::StringLiterals;

namespace powercut {

void DocumentBooks::note(const QStringList &words)
{
    const QString &word = words.first();
    const qint64 number = words.value(1).toLongLong();
    const QString document = words.value(1) + u'/' + words.value(2);
    if (word == u"given")
        highestNumber = number;
    else if (word == u"saved")
        open = document;
    else if (word == u"closed")
        closed[number] = document;
    if (word == u"closed" || word == u"cancelled")
        open.clear();
}

QString DocumentBooks::described() const
{
    QStringList names;
    for (const auto &[number, document] : closed)
        names.append(document);
    return u"open %1, closed %2"_s.arg(open.isEmpty() ? u"none"_s : open, names.join(u' '));
}

} // namespace powercut
