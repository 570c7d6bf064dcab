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
    QByteArray text; ///< without byte order mark; ASCII characters are one byte each
    QStringList honestEncodings; ///< that such bytes can declare, in lower case
    bool isUtf8 = false; ///< otherwise every character of 16 bits is one byte
};

/// The encodings in the XML declaration, in lower case. An honest one has one at most.
QStringList declaredEncodings(const QByteArray &text)
{
    static const QRegularExpression pattern(uR"(encoding\s*=\s*(["'])(.*?)\1)"_s);
    if (!text.startsWith("<?xml"))
        return {};
    const QString declaration = QString::fromLatin1(text.left(text.indexOf("?>")));
    QStringList encodings;
    for (auto found = pattern.globalMatch(declaration); found.hasNext();)
        encodings.append(found.next().captured(2));
    return encodings;
}

Markup narrowMarkup(const QByteArray &answer)
{
    const QByteArray mark = "\xEF\xBB\xBF"_ba;
    const QByteArray text = answer.startsWith(mark) ? answer.sliced(mark.size()) : answer;
    const QStringList declared = declaredEncodings(text);
    const bool isUtf8 = declared.isEmpty() || declared.first().toLower() == u"utf-8";
    return {text, {u"utf-8"_s, u"windows-1251"_s, u"iso-8859-1"_s}, isUtf8};
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

/// The first declared encoding that such bytes cannot be in; null when there is none. The reader
/// changes over to the declared encoding in the middle of the bytes: behind one that does not fit
/// them it would see other tags than the scanner.
QString misfitEncoding(const Markup &markup)
{
    for (const QString &encoding : declaredEncodings(markup.text))
        if (!markup.honestEncodings.contains(encoding.toLower()))
            return encoding;
    return {};
}

AnswerDefect defectAt(const Markup &markup, qsizetype position, const QString &reason)
{
    // Either line break of XML is one: CR, LF or both together.
    const QByteArray before = markup.text.left(position).replace("\r\n", "\n").replace('\r', '\n');
    const QByteArray line = before.sliced(before.lastIndexOf('\n') + 1);
    const qsizetype column = markup.isUtf8 ? QString::fromUtf8(line).size() : line.size();
    return {static_cast<int>(before.count('\n')) + 1, static_cast<int>(column) + 1, reason};
}

} // namespace

std::optional<AnswerDefect> findDefect(const QByteArray &answer)
{
    const auto markup = markupOf(answer);
    if (!markup)
        return defectAt({}, 0, u"Encoding UTF-32 is not accepted."_s);
    const QString encoding = misfitEncoding(*markup);
    if (!encoding.isNull())
        return defectAt(*markup, 0, u"Encoding %1 is not accepted in these bytes."_s.arg(encoding));
    MarkupScanner scanner(markup->text);
    if (const auto refusal = scanner.scan())
        return defectAt(*markup, scanner.position(), *refusal);
    return std::nullopt;
}

} // namespace korvelLoyaltyOnline
