#pragma once

#include "emulator/amounts/amount.h"

#include <QDateTime>
#include <QMap>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace emulator {

/// How a request ended: 0 is success; the codes in use are in returncodes.h.
struct Outcome
{
    int code = 0;
    QString message;
};

struct CardFigures
{
    QString number;
    int status = 0;
    QString type;
    Amount balance;
    QString holder;
    QString email;
    bool chequesByEmail = false;
    QMap<QString, QString> attributes;
};

struct BalanceAnswer
{
    Outcome outcome;
    std::optional<CardFigures> card; ///< nothing in a refusal
};

enum class Applicability
{
    Unknown = 0,
    Applicable = 1,
    NotApplicable = 2,
    AlreadyUsed = 3
};

struct AnsweredCoupon
{
    QString number;
    QString emission; ///< may be empty
    Applicability applicability = Applicability::Unknown;
};

/// "ActiveChargedBonus" on the wire holds the status points too; here they are apart.
struct AnsweredPosition
{
    int number = 0;
    Amount sum;
    Amount sumDiscounted;
    Amount earned;
    Amount earnedStatus;
    Amount spent;
    QMap<QString, QString> attributes; ///< a till sends them back with the position
};

struct ChequeFigures
{
    QString transaction; ///< empty for a calculation
    QDateTime processed; ///< local time
    Amount sum;
    Amount sumDiscounted;
    Amount available;
    Amount balance;
    Amount earned;
    Amount earnedStatus;
    Amount spent;
    QString verificationCode; ///< this and the messages: left out when empty
    QString cashierMessage;
    QString chequeMessage;
    std::vector<AnsweredCoupon> coupons;
    QStringList instantCoupons;
    std::vector<AnsweredPosition> positions;
};

struct ChequeAnswer
{
    Outcome outcome;
    std::optional<ChequeFigures> figures; ///< nothing in a refusal
};

/// An answer given before, word for word as it was.
struct RepeatedAnswer
{
    int code = 0;
    QByteArray xml;
};

using Answer = std::variant<BalanceAnswer, ChequeAnswer, RepeatedAnswer>;

} // namespace emulator
