#include "client/answerguard.h"

#include "client/markupscanner.h"

#include <QRegularExpression>
#include <QStringConverter>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

using Encoding = QStringConverter::Encoding;

/// The bytes of an answer as a scanner wants them.
struct Markup
{
    QByteArray text; ///< one byte per character, without byte order mark
    QStringList honestEncodings; ///< that such bytes can declare, in lower case
};

Markup narrowMarkup(const QByteArray &answer)
{
    const QByteArray mark = "\xEF\xBB\xBF"_ba;
    return {answer.startsWith(mark) ? answer.sliced(mark.size()) : answer,
        {u"utf-8"_s, u"windows-1251"_s, u"iso-8859-1"_s}};
}

/// One byte per UTF-16 unit; what has no byte of its own becomes one above ASCII.
Markup utf16Markup(const QByteArray &answer, Encoding encoding)
{
    constexpr char notAscii = '\x80';
    constexpr qsizetype unitSize = 2;
    const qsizetype low = encoding == QStringConverter::Utf16LE ? 0 : 1;
    const qsizetype high = 1 - low;
    QByteArray text(answer.size() / unitSize, notAscii);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        if (answer.at(unit * unitSize + high) == 0)
            text[unit] = answer.at(unit * unitSize + low);
    }
    const bool hasMark = QStringConverter::encodingForData(answer).has_value();
    // Without a mark the reader takes what declares "UTF-16" for little-endian from there on.
    const bool canDeclare = hasMark || encoding == QStringConverter::Utf16LE;
    return {hasMark ? text.sliced(1) : text, canDeclare ? QStringList(u"utf-16"_s) : QStringList()};
}

/// The bytes by their byte order mark or their first bracket, as the reader tells them; nothing for
/// UTF-32.
std::optional<Markup> markupOf(const QByteArray &answer)
{
    const auto encoding = QStringConverter::encodingForData(answer, u'<');
    if (!encoding || *encoding == QStringConverter::Utf8)
        return narrowMarkup(answer);
    if (*encoding == QStringConverter::Utf16LE || *encoding == QStringConverter::Utf16BE)
        return utf16Markup(answer, *encoding);
    return std::nullopt;
}

/// The first encoding in the XML declaration that such bytes cannot be in; null when there is none.
/// The reader changes over to the declared encoding in the middle of the bytes: behind one that
/// does not fit them it would see other tags than the scanner.
QString misfitEncoding(const Markup &markup)
{
    static const QRegularExpression pattern(uR"(encoding\s*=\s*(["'])(.*?)\1)"_s);
    if (!markup.text.startsWith("<?xml"))
        return {};
    const qsizetype end = markup.text.indexOf("?>");
    const QString declaration = QString::fromLatin1(markup.text.left(end));
    for (auto found = pattern.globalMatch(declaration); found.hasNext();) {
        const QString encoding = found.next().captured(2);
        if (!markup.honestEncodings.contains(encoding.toLower()))
            return encoding;
    }
    return {};
}

AnswerDefect defectAt(const QByteArray &text, qsizetype position, const QString &reason)
{
    const QByteArray before = text.left(position);
    const qsizetype column = position - before.lastIndexOf('\n');
    return {static_cast<int>(before.count('\n')) + 1, static_cast<int>(column), reason};
}

} // namespace

std::optional<AnswerDefect> findDefect(const QByteArray &answer)
{
    const auto markup = markupOf(answer);
    if (!markup)
        return defectAt(answer, 0, u"Encoding UTF-32 is not accepted."_s);
    const QString encoding = misfitEncoding(*markup);
    if (!encoding.isNull())
        return defectAt(
            markup->text, 0, u"Encoding %1 is not accepted in these bytes."_s.arg(encoding));
    MarkupScanner scanner(markup->text);
    if (const auto refusal = scanner.scan())
        return defectAt(markup->text, scanner.position(), *refusal);
    return std::nullopt;
}

} // namespace korvelLoyaltyOnline
