#include "host/config/valuereaders.h"

#include <QStringDecoder>

#include <algorithm>
#include <cmath>

namespace config {

using namespace Qt::Literals::StringLiterals;

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
    constexpr QChar anyText = u'*';
    constexpr QChar anyCharacter = u'?';
    if (pattern.isEmpty() || text.isEmpty())
        return text.isEmpty() && std::all_of(pattern.begin(), pattern.end(), [anyText](QChar rest) {
            return rest == anyText;
        });
    const QStringView rest = pattern.sliced(1);
    if (pattern.front() == anyText)
        return matchesWildcard(text, rest) || matchesWildcard(text.sliced(1), pattern);
    if (pattern.front() == anyCharacter) {
        const bool isPair = text.front().isHighSurrogate() && text.size() > 1;
        return matchesWildcard(text.sliced(isPair ? 2 : 1), rest);
    }
    return pattern.front() == text.front() && matchesWildcard(text.sliced(1), rest);
}

} // namespace config
