#include "host/net/requestheaders.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

bool belongsInName(QChar character)
{
    static const QString marks = u"!#$%&'*+-.^_`|~"_s;
    constexpr char16_t asciiEnd = 0x7F;
    return character.unicode() < asciiEnd
        && (character.isLetterOrNumber() || marks.contains(character));
}

QByteArray safeName(QString name)
{
    return name.removeIf([](QChar character) { return !belongsInName(character); }).toLatin1();
}

QByteArray safeValue(QString value)
{
    const auto isControl
        = [](QChar character) { return character.category() == QChar::Other_Control; };
    return value.removeIf(isControl).trimmed().toUtf8();
}

// A second opinion on the body's length, or a promise to wait before sending it, would let the
// server read another request than the one that was meant.
bool belongsToExchange(const QByteArray &name)
{
    static const QList<QByteArray> names{"content-length", "transfer-encoding", "expect"};
    return names.contains(name.toLower());
}

// libcurl sends a header without a value only when a semicolon takes the colon's place.
QByteArray line(const QByteArray &name, const QByteArray &value)
{
    return value.isEmpty() ? QByteArray(name + ';') : QByteArray(name + ": " + value);
}

} // namespace

QList<QByteArray> headerLines(const QHash<QString, QString> &headers)
{
    // A name without a value takes a header of libcurl's own away: its "Expect: 100-continue" would
    // put the body off, and its content type is that of a web form.
    QList<QByteArray> lines{"Expect:"};
    bool hasContentType = false;
    for (auto header = headers.cbegin(); header != headers.cend(); ++header) {
        const QByteArray name = safeName(header.key());
        if (name.isEmpty() || belongsToExchange(name))
            continue;
        hasContentType = hasContentType || name.compare("content-type", Qt::CaseInsensitive) == 0;
        lines.append(line(name, safeValue(header.value())));
    }
    if (!hasContentType)
        lines.append("Content-Type:");
    return lines;
}
