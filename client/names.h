#pragma once

#include <QString>

/// Element and attribute names of the service's messages, where the result map has no key of the
/// same name.
namespace korvelLoyaltyOnline::wire {

// Messages and the fields of every request
inline const QString balanceRequest = QStringLiteral("BalanceRequest");
inline const QString chequeRequest = QStringLiteral("ChequeRequest");
inline const QString chequeResponse = QStringLiteral("ChequeResponse");
inline const QString dateTime = QStringLiteral("DateTime");
inline const QString pos = QStringLiteral("POS");
inline const QString organization = QStringLiteral("Organization");
inline const QString businessUnit = QStringLiteral("BusinessUnit");

// Cheques
inline const QString chequeType = QStringLiteral("ChequeType"); ///< an attribute
inline const QString operationType = QStringLiteral("OperationType");
inline const QString number = QStringLiteral("Number");
inline const QString card = QStringLiteral("Card");
inline const QString cardNumber = QStringLiteral("CardNumber");
inline const QString transactionReference = QStringLiteral("TransactionReference");
inline const QString chequeReference = QStringLiteral("ChequeReference");
inline const QString writeOffConfirm = QStringLiteral("WriteOffConfirm");
inline const QString confirm = QStringLiteral("Confirm");
inline const QString sendCode = QStringLiteral("SendCode");

// Positions
inline const QString item = QStringLiteral("Item");
inline const QString positionNumber = QStringLiteral("PositionNumber");
inline const QString article = QStringLiteral("Article");
inline const QString price = QStringLiteral("Price");
inline const QString quantity = QStringLiteral("Quantity");
inline const QString minimumPrice = QStringLiteral("Mcp");

// Coupons
inline const QString coupons = QStringLiteral("Coupons");
inline const QString coupon = QStringLiteral("Coupon");
inline const QString applicabilityCode = QStringLiteral("ApplicabilityCode");
inline const QString emissionId = QStringLiteral("EmissionID");
inline const QString instantCoupon = QStringLiteral("InstantCoupon");

// Extended attributes
inline const QString extendedAttribute = QStringLiteral("ExtendedAttribute");
inline const QString key = QStringLiteral("Key");
inline const QString value = QStringLiteral("Value");

// Outcome of an answer
inline const QString returnCode = QStringLiteral("ReturnCode");
inline const QString message = QStringLiteral("Message");

// Card answers
inline const QString cardStatus = QStringLiteral("CardStatus");
inline const QString cardType = QStringLiteral("CardType");
inline const QString fullName = QStringLiteral("FullName");
inline const QString email = QStringLiteral("Email");
inline const QString allowReceiveChequeByEmail = QStringLiteral("AllowReceiveChequeByEmail");

} // namespace korvelLoyaltyOnline::wire
