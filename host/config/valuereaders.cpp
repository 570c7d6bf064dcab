#include "host/config/valuereaders.h"

#include <QStringDecoder>

#include <algorithm>
#include <cmath>

namespace config {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QChar anyText = u'*';
constexpr QChar anyCharacter = u'?';

/// How many units of a text that is not empty the pattern's first character stands for, if not any
/// text; 0 where it does not match.
qsizetype matchedLength(QStringView text, QStringView pattern)
{
    if (pattern.startsWith(anyCharacter))
        return text.front().isHighSurrogate() && text.size() > 1 ? 2 : 1;
    return pattern.startsWith(text.front()) ? 1 : 0;
}

} // namespace

std::optional<QString> decoded(const QByteArray &bytes)
{
    // Stateless: a sequence that the end of the text cuts is an error too.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

std::optional<int> integer(const QString &text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<double> number(const QString &text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<bool> boolean(const QString &text)
{
    static const QStringList yes{u"true"_s, u"yes"_s, u"on"_s, u"1"_s};
    static const QStringList no{u"false"_s, u"no"_s, u"off"_s, u"0"_s};
    const QString word = text.trimmed();
    if (yes.contains(word, Qt::CaseInsensitive))
        return true;
    return no.contains(word, Qt::CaseInsensitive) ? std::optional(false) : std::nullopt;
}

QStringList items(const QString &text)
{
    QStringList result;
    for (const QString &item : text.split(u','))
        if (const QString trimmed = item.trimmed(); !trimmed.isEmpty())
            result.append(trimmed);
    return result;
}

bool matchesWildcard(QStringView text, QStringView pattern)
{
    // Behind the last "*" and what it stands for so far; it stands for one more character when what
    // follows it does not match.
    std::optional<QStringView> behindAny;
    QStringView retried;
    while (!text.isEmpty()) {
        if (pattern.startsWith(anyText)) {
            pattern = pattern.sliced(1);
            behindAny = pattern;
            retried = text;
        } else if (const qsizetype length = matchedLength(text, pattern); length > 0) {
            text = text.sliced(length);
            pattern = pattern.sliced(1);
        } else if (behindAny) {
            retried = retried.sliced(1);
            text = retried;
            pattern = *behindAny;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin(), pattern.end(), [](QChar rest) { return rest == anyText; });
}

} // namespace config
