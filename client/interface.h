#pragma once

#include "common/confirmationinfo.h"
#include "common/host/documents.h"
#include "common/host/framework.h"
#include "common/host/services.h"

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <vector>

namespace Log4Qt {
class Logger;
}

namespace korvelLoyaltyOnline {

class AnswerIndex;
struct ConfiguredSection;

/// The client of the loyalty service: composes requests, sends or queues them, reads the answers.
///
/// Made once by the plug-in and kept for its whole life. The settings "KorvelLoyaltyOnline:…" are
/// read in the constructor and never again; only the sections of configured attributes and the
/// card flags "cardTypeExtendedAttribute" are looked up when they are needed. After construction
/// every operation is `const`. Runs on the host's thread; an exchange
/// blocks for at most the configured timeout. The operations are virtual so that a substitute can
/// take their place, and they call one another through the virtual table.
///
/// Failures of an exchange are thrown and never caught here: `KorvelNoConnectionException` (the
/// service was not reached, or it is not known whether it acted), `KorvelInternalErrorException`
/// (it answered with a code that is not shown), `KorvelException` (it refused, or answered what is
/// not XML). Where an operation throws, nothing behind the failed step has happened: records and
/// result maps are as they were.
class Interface
{
public:
    /// Reads the settings "KorvelLoyaltyOnline:…"; no value of theirs can make it fail.
    Interface();
    virtual ~Interface();
    Q_DISABLE_COPY_MOVE(Interface)

    // Service operations

    /// Asks for the card's balance and holder and notes them on the record.
    virtual void balanceRequest(const QSharedPointer<DocumentCardRecord> &card) const;
    /// Sends a sale cheque and fills the result map from the answer.
    /// @param chequeType   "Soft" calculates, "Fiscal" registers; written as it is.
    /// @param confirmation null: no confirmation is sent.
    /// @return true when the service answered that the points are not enough, false on success.
    virtual bool saleChequeRequest(const QSharedPointer<AbstractDocument> &document,
        const QString &chequeType, const QSharedPointer<korvel::ConfirmationInfo> &confirmation,
        QMap<QString, QVariant> &result) const;
    /// Undoes the registration of the document; sets "CardNormalActiveBalance" of the result, a
    /// text.
    virtual void rollbackChequeRequest(
        const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result) const;
    /// Registers a return.
    virtual void returnChequeRequest(const QSharedPointer<AbstractDocument> &document) const;
    /// Queues a sale cheque for later registration.
    virtual void saleChequeRequestOffline(const QSharedPointer<AbstractDocument> &document) const;
    /// Queues a return for later registration.
    virtual void returnChequeRequestOffline(const QSharedPointer<AbstractDocument> &document) const;
    /// In money; negative when none is configured.
    virtual double getMinRetailPriceForMarkdownPositions() const;

    // Composition of requests

    /// The whole request document of a sale. The document must carry a card of this system.
    virtual QDomDocument formSaleChequeRequest(const QSharedPointer<AbstractDocument> &document,
        const QString &chequeType,
        const QSharedPointer<korvel::ConfirmationInfo> &confirmation) const;
    /// Composes a return in the given, empty document.
    virtual void formReturnChequeRequest(
        const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const;
    /// Element "Card".
    virtual QDomElement formCard(
        const QSharedPointer<DocumentCardRecord> &card, QDomDocument &request) const;
    /// Element "WriteOffConfirm"; null for a null confirmation.
    virtual QDomElement formWriteOffConfirm(
        const QSharedPointer<korvel::ConfirmationInfo> &confirmation, QDomDocument &request) const;
    /// Element "Coupons"; null for a document without coupons.
    virtual QDomElement formCoupons(
        const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const;
    /// Element "TransactionReference", put into `reference`; the caller appends it.
    virtual void formTransactionReference(const QSharedPointer<DocumentCardRecord> &card,
        QDomElement &reference, QDomDocument &request) const;
    /// Element "ChequeReference", put into `reference`; the caller appends it.
    virtual void formChequeReference(const QSharedPointer<AbstractDocument> &document,
        QDomElement &reference, QDomDocument &request) const;
    /// Completes the payload with the fields of every request and wraps it into the envelope.
    virtual void formXmlRequest(QDomElement &payload, QDomDocument &request) const;
    /// Discount in per cent; infinite when only the sum before discounts is zero.
    virtual double calculateDiscount(double sumBefore, double sumAfter) const;

    // Transport and answers

    /// Does the exchange and returns the answer, parsed but otherwise unchecked.
    /// @param timeout for the whole exchange, in seconds.
    /// @throws KorvelNoConnectionException with the HTTP client's message when the exchange failed.
    /// @throws KorvelException when the answer is no XML or beyond the limits of an answer.
    virtual QDomDocument sendRequest(const QDomDocument &request, int timeout) const;
    /// Returns when "ReturnCode" is 0 or less, or cannot be read; otherwise does `throwError` with
    /// the service's "Message".
    virtual void checkResponse(const QDomDocument &response) const;
    /// @throws KorvelException when "CardStatus" is a forbidden one; its flag says whether the
    ///         customer is to know.
    virtual void checkCardStatus(const QDomDocument &response) const;
    /// Attaches a client named after the card type when the answer names a holder or a card type.
    virtual void fillClient(
        const QDomDocument &response, const QSharedPointer<DocumentCardRecord> &card) const;
    /// Reads a cheque answer into the result map, key by key; other keys stay.
    virtual void fillRequestResult(
        const QDomDocument &response, QMap<QString, QVariant> &result) const;
    /// Adds the pair of one "ExtendedAttribute" to the map.
    virtual void fillExtendedAttribute(
        const QDomElement &attribute, QMap<QString, QVariant> &attributes) const;
    /// Puts the request into the outgoing queue, with address and headers of an online request.
    virtual void sendRequestOffline(const QDomDocument &request) const;

    /// Returns for code 0 only. Codes from 1 up go to the journal first, if configured; a journal
    /// that fails is logged and changes nothing.
    /// @throws KorvelException              for codes that are always shown or configured so.
    /// @throws KorvelInternalErrorException for all others.
    void throwError(int code, const tr::Tr &message) const;
    /// HTTP headers of every request.
    QHash<QString, QString> formXmlRequestHeaders() const;
    /// "CardType" and the configured flags of the card, joined with ", ".
    QString getCardType(const QDomDocument &response) const;
    /// Elements "Item", one per position.
    QList<QDomElement> formItems(
        const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const;
    /// Elements "ExtendedAttribute" of the cheque (null position) or of a position.
    QList<QDomElement> formExtendedAttributes(const QMap<QString, QVariant> &data,
        QDomDocument &request, const QSharedPointer<GoodsItem> &position) const;
    /// The mask expanded over the current document.
    QString formDataByMask(const QString &mask) const;
    /// Attributes that are direct children of "ChequeResponse".
    QMap<QString, QVariant> createExtendedAttributes(const QDomDocument &response) const;
    /// Attributes inside the element, at any depth.
    QMap<QString, QVariant> createExtendedAttributes(const QDomElement &element) const;
    /// One map with "Number" and "Message" per "InstantCoupon".
    QList<QVariant> createCouponsToPrint(const QDomDocument &response) const;

private:
    void readForbiddenCardStatuses(const Config &config);

    QDomElement formItem(const QSharedPointer<GoodsItem> &position,
        const QMap<QString, QVariant> &data, QDomDocument &request,
        const QList<ConfiguredSection> &sections) const;
    double minimumPrice(const GoodsItem &position) const;
    QList<QDomElement> formStoredAttributes(
        const QMap<QString, QVariant> &data, QDomDocument &request) const;
    QList<QDomElement> formPositionAttributes(const QMap<QString, QVariant> &data,
        QDomDocument &request, const QSharedPointer<GoodsItem> &position,
        const QList<ConfiguredSection> &sections) const;
    QList<QDomElement> formConfiguredAttributes(const QSharedPointer<GoodsItem> &position,
        QDomDocument &request, const QList<ConfiguredSection> &sections) const;
    QList<QDomElement> formOptionAttributes(const GoodsItem &position, QDomDocument &request) const;
    QDomElement formExtendedAttribute(
        QDomDocument &request, const QMap<QString, QString> &attributes) const;
    QMap<QString, QVariant> readAttributes(const std::vector<QDomElement> &elements) const;
    QList<QVariant> couponsToPrint(const QString &message, const QStringList &numbers) const;
    QMap<QString, QVariant> readPositions(const AnswerIndex &answer) const;

    static constexpr int defaultTimeoutSeconds = 15;
    static constexpr int noIndexPrice = -1;
    static constexpr double noMinRetailPrice = -1.0;

    // Constant after construction.
    QUrl m_url;
    int m_timeout = defaultTimeoutSeconds; ///< seconds
    int m_timeoutReturn = defaultTimeoutSeconds; ///< seconds, for returns
    QString m_user;
    QString m_password;
    QString m_organization;
    QString m_businessUnit; ///< a mask
    QString m_pos; ///< a mask
    QString m_orgName;
    QString m_couponMessageDelimeter;
    int m_indexForMinRetailPrice = noIndexPrice; ///< negative: none
    QMap<int, bool> m_forbiddenCardStatuses; ///< value: whether the customer is to know
    bool m_sendAdditionalBarcodeMarkdown = false;
    QSet<int> m_errorsList; ///< service codes that are refusals
    bool m_registerErrorsInActivityJournal = false;
    double m_minRetailPriceForMarkdownPositions = noMinRetailPrice; ///< negative: none
    Log4Qt::Logger *m_logger; ///< not owned; lives to the end of the program
};

} // namespace korvelLoyaltyOnline
