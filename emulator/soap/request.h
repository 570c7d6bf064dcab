#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/data/operations.h"

#include <QDate>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

namespace emulator {

/// Where a request comes from. All three together tell one till from another.
struct Till
{
    QString organization;
    QString businessUnit;
    QString pos;
};

struct BalanceRequest
{
    Till till;
    QString card;
};

struct Confirmation
{
    bool confirm = false;
    bool sendCode = false;
    QString code;
};

/// A position as the till sells or returns it. The till's own sums are not here: they are the
/// service's figures of some earlier answer and may be stale.
struct RequestPosition
{
    int number = 0;
    QString article;
    Amount price;
    Quantity quantity;
    Amount sum; ///< price × quantity
    Amount minimumPrice; ///< per unit; zero: none
    QMap<QString, QString> attributes; ///< what the last answer held for it, or the till's own
};

struct SaleRequest
{
    Till till;
    QString card;
    QString number;
    bool fiscal = false;
    Amount sum; ///< this and the next two: the service's last answer, or the till's own figures
    Amount discount;
    Amount sumDiscounted;
    Amount paidByBonus;
    std::optional<Confirmation> confirmation;
    QStringList coupons;
    std::vector<RequestPosition> positions;
};

/// The sale that a return belongs to. The number is empty when there is none.
struct ChequeReference
{
    Till till;
    QString number;
    QDate date; ///< invalid when the till does not know it
};

struct ReturnRequest
{
    Till till;
    QString card;
    QString number;
    ChequeReference sale;
    std::vector<RequestPosition> positions;
};

struct RollbackRequest
{
    Till till;
    QString card;
    QString transaction;
};

using Request = std::variant<BalanceRequest, SaleRequest, ReturnRequest, RollbackRequest>;

Operation operationOf(const Request &request);
QString cardOf(const Request &request);
QString posOf(const Request &request);
QString chequeNumberOf(const Request &request); ///< empty where a request has none

} // namespace emulator
