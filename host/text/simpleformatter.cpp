#include "host/text/simpleformatter.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QVariant>

#include <algorithm>

template class MockFactory<SimpleFormatter>;

using namespace Qt::Literals::StringLiterals;

namespace {

const QString escapedOpening = u"$${"_s;
const QString opening = u"${"_s;
constexpr QChar closing = u'}';
constexpr QChar nameSeparator = u'.';

// More digits would show how a binary fraction misses its decimal one, and amounts and quantities
// stay clear of an exponent.
constexpr int significantDigits = 15;

QString textOf(const QVariant &value)
{
    const int type = value.typeId();
    if (type == QMetaType::Double || type == QMetaType::Float)
        return QString::number(value.toDouble(), 'g', significantDigits);
    return value.toString();
}

QVariant lookedUp(const QString &name, const QList<QObject *> &objects)
{
    const qsizetype separator = name.indexOf(nameSeparator);
    const QString objectName = name.left(std::max<qsizetype>(separator, 0));
    const QByteArray property = name.mid(separator + 1).toUtf8();
    for (const QObject *object : objects) {
        if (!object || (separator >= 0 && object->objectName() != objectName))
            continue;
        if (QVariant value = object->property(property.constData()); value.isValid())
            return value;
    }
    return {};
}

QString expanded(const QString &name, const QList<QObject *> &objects)
{
    const QVariant value = lookedUp(name, objects);
    if (!value.isValid())
        Log4Qt::LogManager::logger(u"poshost.formatter"_s)
            ->debug(u"no object has what a mask asks for: %1"_s.arg(name));
    return textOf(value);
}

} // namespace

SimpleFormatter::~SimpleFormatter() = default;

QString SimpleFormatter::format(const QString &mask, const QList<QObject *> &objects, int,
    QMap<QString, QString> &resolved) const
{
    QString result;
    qsizetype at = 0;
    while (at < mask.size()) {
        const QStringView rest = QStringView(mask).mid(at);
        const qsizetype end = mask.indexOf(closing, at);
        if (rest.startsWith(escapedOpening)) {
            result.append(opening);
            at += escapedOpening.size();
        } else if (rest.startsWith(opening) && end >= 0) {
            const QString placeholder = mask.mid(at, end + 1 - at);
            const QString name = placeholder.mid(opening.size()).chopped(1);
            resolved[placeholder] = expanded(name, objects);
            result.append(resolved[placeholder]);
            at = end + 1;
        } else {
            result.append(mask.at(at++));
        }
    }
    return result;
}
