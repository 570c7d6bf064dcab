#pragma once

#include "emulator/amounts/amount.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

namespace emulator {

/// What is taken off: a share of the sum, or a fixed amount.
using Reduction = std::variant<Percent, Amount>;

/// A return code that a card always gets, for trying what a till does with it.
struct ForcedCode
{
    int code = 0;
    QString message;
    QStringList operations; ///< "balance", "soft", …; empty: every operation
};

struct CardData
{
    QString number;
    int status = 0;
    QString type;
    QString holder;
    QString email;
    bool chequesByEmail = false;
    Amount openingBalance;
    int openingStickers = 0;
    QMap<QString, QString> attributes;
    std::optional<ForcedCode> forced;
};

/// Cards that a till makes up itself for a cheque without a card. They get discounts and
/// neither earn nor spend: nobody could ever present such a number again.
struct TechnicalCards
{
    QString prefix; ///< empty: there are none
    QString type;
    int status = 0;
};

struct ArticleDiscount
{
    QString article;
    Reduction reduction; ///< a fixed amount is taken off each unit
};

struct ChequeDiscount
{
    Amount from; ///< the least sum after article discounts
    Reduction reduction; ///< a fixed amount is taken off the cheque
};

struct ArticleEarning
{
    QString article;
    Percent percent;
};

struct ChequeEarning
{
    Amount from; ///< the least sum that is really paid
    Amount points;
};

struct Earning
{
    Percent percent; ///< of what is paid for a position, points excluded
    Percent statusPercent; ///< status points; they are counted apart and cannot be spent
    std::vector<ArticleEarning> articles; ///< instead of `percent`
    std::vector<ChequeEarning> cheque; ///< the one with the greatest `from` that is reached
};

struct Spending
{
    Percent share; ///< of the cheque's sum after discounts that may be paid with points
    std::optional<Amount> confirmAbove; ///< more points than this need the holder's code
    QString code; ///< always this code instead of a random one; empty: random
    std::optional<int> codeMinutes; ///< how long a code holds; nothing: for ever
    std::optional<int> codeAttempts; ///< wrong codes that make the right one void; nothing: none do
};

/// What stickers buy: a discount on units of an article.
struct StickerOffer
{
    QString article;
    int stickers = 0; ///< for one unit; at least 1
    Amount discount; ///< for one unit; above zero
    std::optional<int> limit; ///< units of one position, at least 1; nothing: as many as there are
};

struct CouponData
{
    QString number;
    QString emission; ///< may be empty
    bool applicable = true;
    bool once = false; ///< spent by the first cheque that is registered with it
    Reduction reduction;
};

/// A coupon that is printed for the customer when the cheque is registered.
struct InstantCouponRule
{
    Amount from; ///< the least sum after discounts
    QString prefix; ///< leading digits of the thirteen-digit number
    QString text; ///< with {coupon} and the placeholders of messages
    Reduction reduction; ///< what the coupon takes off a later cheque, once
};

/// Texts with placeholders, see `placeholders` in messages.h; an empty one is not sent.
struct Messages
{
    QString cashier;
    QString cheque;
};

/// Everything that people configure about the service. Read once, never changed.
struct ServiceData
{
    std::vector<int> servedStatuses; ///< cheques of cards in any other status are refused
    std::vector<CardData> cards;
    TechnicalCards technicalCards;
    std::vector<ArticleDiscount> articleDiscounts;
    std::vector<ChequeDiscount> chequeDiscounts; ///< the one with the greatest `from` reached
    Earning earning;
    Spending spending;
    std::vector<StickerOffer> stickerOffers; ///< at most one for an article
    std::vector<CouponData> coupons;
    std::vector<InstantCouponRule> instantCoupons;
    Messages softMessages;
    Messages fiscalMessages;
};

} // namespace emulator
