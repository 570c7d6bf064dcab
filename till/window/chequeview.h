#pragma once

#include "host/documents/abstractdocument.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace till {

/// One position as the cashier sees it. Amounts are empty where there is nothing of the kind.
struct PositionRow
{
    int posnum = 0;
    QString code;
    QString name;
    QString quantity; ///< with its unit
    QString price;
    QString discount;
    QString sum; ///< what the customer pays for it, less discount and points
    QString points; ///< those that pay for it

    friend bool operator==(const PositionRow &left, const PositionRow &right) = default;
};

/// The customer's loyalty card; all empty but the status without one. Points.
struct CustomerView
{
    QString card;
    QString type;
    QString balance;
    QString available; ///< what can be spent
    QString chosen; ///< what is to be spent
    QString earned; ///< what the cheque earns
    QString status; ///< what became of the card

    friend bool operator==(const CustomerView &left, const CustomerView &right) = default;
};

/// A document as the window shows it. A record of texts in the language of the interface.
struct ChequeView
{
    QString title;
    QList<PositionRow> positions;
    CustomerView customer;
    QStringList coupons;
    QString total; ///< what the customer pays, or is given back

    friend bool operator==(const ChequeView &left, const ChequeView &right) = default;
};

/// @param document    null at an empty desk.
/// @param refusedCard which card was refused after those that the document has, and why; empty:
///                    none was.
[[nodiscard]] ChequeView chequeView(const AbstractDocument *document, const QString &refusedCard);

} // namespace till
