#pragma once

#include <QDomDocument>
#include <QMap>
#include <QString>
#include <QVariant>

/// The result map of a cheque answer, read the obvious way: each value by a list of its own of the
/// elements of that name. What the client's own reader gives is compared with it.
[[nodiscard]] QMap<QString, QVariant> literallyRead(
    const QDomDocument &answer, const QString &couponDelimiter);

/// The coupons to print, likewise.
[[nodiscard]] QList<QVariant> literallyReadCoupons(
    const QDomDocument &answer, const QString &couponDelimiter);

/// The attributes of the cheque: direct children of the first "ChequeResponse".
[[nodiscard]] QMap<QString, QVariant> literallyReadAttributes(const QDomDocument &answer);

/// The attributes inside an element, at any depth.
[[nodiscard]] QMap<QString, QVariant> literallyReadAttributes(const QDomElement &element);
