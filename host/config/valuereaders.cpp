#include "host/config/valuereaders.h"

#include <QStringDecoder>

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

// QRegularExpression's own wildcards would know sets and would not let "*" pass a slash.
QRegularExpression wildcard(const QString &pattern)
{
    QString expression = QRegularExpression::escape(pattern);
    expression.replace(u"\\*"_s, u".*"_s).replace(u"\\?"_s, u"."_s);
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
        QRegularExpression::DotMatchesEverythingOption);
}

} // namespace config
