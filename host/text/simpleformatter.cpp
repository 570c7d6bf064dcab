#include "host/text/simpleformatter.h"

template class MockFactory<SimpleFormatter>;

SimpleFormatter::~SimpleFormatter() = default;

QString SimpleFormatter::format(
    const QString &mask, const QList<QObject *> &, int, QMap<QString, QString> &) const
{
    return mask;
}
