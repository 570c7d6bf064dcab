#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

/// Expands masks. `MockFactory<SimpleFormatter>::create()`.
///
/// A mask is constant text with "${property}" (of the first object that has it) or
/// "${object.property}" (of the first object of that name that has it); "$${" writes "${". What
/// does not resolve gives an empty text in its place and a debug line of the logger
/// "poshost.formatter"; a "${" that is never closed is constant text. Numbers are written with a
/// point and up to 15 significant digits, truth values as "true" and "false".
class POSHOST_EXPORT SimpleFormatter
{
public:
    /// The only way of formatting known.
    static constexpr int plain = 0;

    SimpleFormatter() = default;
    virtual ~SimpleFormatter();
    Q_DISABLE_COPY_MOVE(SimpleFormatter)

    /// @param objects    where properties are looked for, in this order; not owned.
    /// @param resolved   receives what each placeholder, as it stands in the mask, became.
    [[nodiscard]] virtual QString format(const QString &mask, const QList<QObject *> &objects,
        int flags, QMap<QString, QString> &resolved) const;
};

extern template class POSHOST_EXPORT MockFactory<SimpleFormatter>;
