#include "tests/client/valuetext.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

QString textText(const QString &text)
{
    return text.isNull() ? u"null"_s : QString(u'"' % text % u'"');
}

QString numberText(double number)
{
    // Digits from which every double comes back; the sign of a zero is written too.
    constexpr int allDigits = 17;
    return QString::number(number, 'g', allDigits);
}

} // namespace

QString valueText(const QVariant &value)
{
    QStringList parts;
    switch (value.typeId()) {
    case QMetaType::QString:
        return textText(value.toString());
    case QMetaType::Double:
        return numberText(value.toDouble());
    case QMetaType::QStringList:
        for (const QString &text : value.toStringList())
            parts.append(textText(text));
        return u"texts(" % parts.join(u", "_s) % u")";
    case QMetaType::QVariantList:
        for (const QVariant &item : value.toList())
            parts.append(valueText(item));
        return u"list(" % parts.join(u", "_s) % u")";
    case QMetaType::QVariantMap: {
        const auto map = value.toMap();
        for (auto pair = map.cbegin(); pair != map.cend(); ++pair)
            parts.append(QString(u"\n" % pair.key() % u": " % valueText(pair.value())));
        return u"map(" % parts.join(u","_s) % u")";
    }
    default:
        return u"a value of an unexpected type: "_s + QString::fromLatin1(value.typeName());
    }
}
