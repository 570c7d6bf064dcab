#pragma once

#include <QString>

/// Names that the plug-in and its client share, each in one place.
namespace korvel {

/// The plug-in's name: its section of the settings and the group of its stored values on a
/// document.
inline const QString group = QStringLiteral("KorvelLoyaltyOnline");
/// The logger of plug-in, client and their HTTP exchanges.
inline const QString loggerName = QStringLiteral("korvelonline");
/// The outgoing queue of cheques that were sold or returned without the service.
inline const QString queueName = QStringLiteral("korvelloyaltyonline");
/// Marks a markdown position in its extended options; in any case of the letters.
inline const QString markdownMarker = QStringLiteral("MARKDOWN");

/// Cheque types of a request.
namespace chequetype {
inline const QString soft = QStringLiteral("Soft"); ///< calculates, books nothing
inline const QString fiscal = QStringLiteral("Fiscal"); ///< registers
} // namespace chequetype

/// Keys of what the plug-in keeps on the document.
namespace plugindata {
inline const QString chequeData = QStringLiteral("chequeData");
inline const QString positionsData = QStringLiteral("positionsData");
inline const QString pointsForSpend = QStringLiteral("pointsForSpend");
inline const QString verificationCode = QStringLiteral("verificationCode");
inline const QString notUseStickers = QStringLiteral("notUseStickers");
inline const QString offlineMode = QStringLiteral("offlineMode");
} // namespace plugindata

/// Keys of the map that a cheque answer is read into; each is the name of the answer's element
/// unless said otherwise. Figures of the whole cheque that are marked so are texts.
namespace result {
inline const QString availablePayment = QStringLiteral("AvailablePayment"); ///< text
inline const QString cardNormalActiveBalance = QStringLiteral("CardNormalActiveBalance"); ///< text
inline const QString chargedStatusBonus = QStringLiteral("ChargedStatusBonus"); ///< text
inline const QString activeChargedBonus = QStringLiteral("ActiveChargedBonus"); ///< text
inline const QString writeoffBonus = QStringLiteral("WriteoffBonus");
inline const QString transactionId = QStringLiteral("TransactionID"); ///< text
inline const QString summ = QStringLiteral("Summ");
inline const QString discount = QStringLiteral("Discount");
inline const QString summDiscounted = QStringLiteral("SummDiscounted");
inline const QString processed = QStringLiteral("Processed"); ///< text
inline const QString verificationCode = QStringLiteral("VerificationCode"); ///< text
inline const QString cashierMessage = QStringLiteral("CashierMessage"); ///< text
inline const QString chequeMessage = QStringLiteral("ChequeMessage"); ///< text
/// Map of name to text; no element.
inline const QString extendedAttributes = QStringLiteral("ExtendedAttributes");
/// List of maps with `couponNumber` and `couponMessage`; no element.
inline const QString couponsToPrint = QStringLiteral("CouponsToPrint");
/// Map of position number to the position's map; no element.
inline const QString positions = QStringLiteral("Positions");
/// List of coupon numbers; no element.
inline const QString applicableCoupons = QStringLiteral("ApplicableCoupons");
/// Points that a cheque is paid with: part of a request, and of the stored cheque data.
inline const QString paidByBonus = QStringLiteral("PaidByBonus");

inline const QString couponNumber = QStringLiteral("Number");
inline const QString couponMessage = QStringLiteral("Message"); ///< what is printed; may be empty
} // namespace result

/// Keys of the operation information on a card record.
namespace operationinfo {
inline const QString transactionDate = QStringLiteral("TransactionDate"); ///< a `QDate`
} // namespace operationinfo

} // namespace korvel
