#pragma once

#include "client/interface.h"
#include "common/confirmationinfo.h"
#include "common/exceptions.h"
#include "common/host/documents.h"
#include "common/host/framework.h"
#include "plugin/verification.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace Log4Qt {
class Logger;
}

/// The loyalty system of the till: turns the answers of the loyalty service into discounts, points,
/// messages and coupons of the open cheque, and lets the cheque go on offline when the service
/// cannot be reached.
///
/// One object per process, made by the plug-in's entry point and used on the host's thread only.
/// `init` is called once after construction. What belongs to one cheque lives from its first
/// request until `clearLoyaltyData`; what must survive a restart is kept on the document itself and
/// taken up again by `restoreLoyaltySystem`. Settings are read in the constructor and not again.
///
/// A lost connection never stops a sale; a refusal by the service makes an operation answer false,
/// with the reason in the base's last error.
class KorvelLoyaltyOnline : public BaseActivityListener, public BasicLoyaltySystem
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "KorvelLoyaltyOnline" FILE "korvelloyaltyonline.json")
    Q_INTERFACES(BasicLoyaltySystem BasicPlugin)

public:
    /// Makes the service client, then reads the settings "KorvelLoyaltyOnline:…"; none of their
    /// values can make it fail.
    KorvelLoyaltyOnline();
    ~KorvelLoyaltyOnline() override;

    // The virtual operations are declared in the order of their slots; new ones go behind the last.

public Q_SLOTS:
    /// A closed cheque with a card of this system: prints its coupons, queues it when it was sold
    /// offline, ends its loyalty state. A cancelled or left document ends the state only.
    /// @throws what the outgoing queue throws; the state is then kept.
    void handleEvent(const Event &event) override;

public:
    /// Subscribes to activity events, adds the action triggers, registers the loyalty system.
    bool init() override;
    /// Asks the service for the card. True: accepted, offline too (balance 0); false: refused.
    bool identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type) override;
    /// Calculates the current cheque. True also when it goes on offline.
    bool request(const QSharedPointer<AbstractDocument> &document) override;
    /// Registers a return, or queues it when the service cannot be reached; other documents need
    /// nothing.
    bool commit(const QSharedPointer<AbstractDocument> &document) override;
    /// Undoes the registration, if there was one, and forgets the cheque. False: nothing is
    /// forgotten.
    bool rollback(const QSharedPointer<AbstractDocument> &document) override;
    /// Nothing to leave: always true.
    bool cancel() override;
    /// Points that the service allows to spend on the cheque.
    double getPointsForSpend(const QSharedPointer<AbstractDocument> &document) override;
    /// Notes how many points the customer wants to spend; 0: all that can be spent.
    void setPointsForSpend(
        const QSharedPointer<AbstractDocument> &document, double points) override;
    /// Pays with the chosen points. False: refused, or the customer's code was not confirmed; the
    /// cheque is then not paid with points. True also when the cheque goes on offline without them.
    bool spendPoints() override;
    /// Registers the current cheque once and tells whether it earns points. False also when the
    /// cheque goes on offline.
    /// @throws KorvelException when the service refuses; the card is then as it was.
    bool hasPointsForEarn() override;
    /// Takes points, declined stickers and offline mode over from the current document.
    bool restoreLoyaltySystem() override;
    void beforePutoutCheck() override;
    /// Ends the loyalty state of the cheque.
    void afterPutoutCheck() override;

protected:
    /// One discount impact per position of the answer, also where the discount is 0.
    virtual void fillDiscountImpacts(const QMap<QString, QVariant> &result);
    /// Keeps the cheque's totals and attributes on the document; other entries kept there stay.
    virtual void fillChequeData(const QMap<QString, QVariant> &result) const;
    /// Keeps the answer's positions on the document in place of those kept before.
    virtual void fillPositionsData(const QMap<QString, QVariant> &result) const;
    /// One bonus record per position that earns points; what the cheque earns beyond them is spread
    /// by the host.
    virtual void fillBonusRecords(const QMap<QString, QVariant> &result);
    /// One bonus impact per position that is paid with points.
    virtual void fillBonusImpacts(const QMap<QString, QVariant> &result);
    /// Tells the till that the cashier waits for the service.
    virtual void sendStartEvent() const;
    /// Tells the till that the waiting is over, or interrupted by a dialog.
    virtual void sendStopEvent() const;

public:
    void clearLoyaltyData() override;

protected:
    /// Asks for the code that the customer received.
    /// @throws KorvelException when the cashier cancels.
    [[nodiscard]] virtual QString inputVerificationCode() const;
    /// Offers the customer the exchange of stickers for discounts when the answer has such offers.
    /// Accepted: the cheque is calculated once more, and `result` holds the new answer.
    /// @throws the exceptions of the client; `result` is then empty.
    virtual void interchangeStickers(QMap<QString, QVariant> &result);
    /// Whether any position of the answer carries a sticker action.
    [[nodiscard]] virtual bool hasStickersActions(const QMap<QString, QVariant> &result) const;
    /// Keeps the most profitable sticker actions when the customer's stickers do not pay for all.
    virtual void selectStickersActions(const QMap<QString, QVariant> &result) const;
    /// Keeps the answer's positions on the document without the sticker actions of the given
    /// positions. An empty set stands for all positions.
    virtual void removeStickersActions(
        const QMap<QString, QVariant> &result, const QSet<QString> &positions) const;
    /// A number for a card that stands for a customer without one; another at each call.
    [[nodiscard]] virtual QString generateTechnicalCardNumber() const;
    /// From here on the cheque is sold without the service; kept on the document, which is saved.
    virtual void setOfflineMode();
    /// Tells the cashier to hand all coupons back, then takes them off the document.
    virtual void removeCoupons(const QSharedPointer<AbstractDocument> &document) const;
    /// Turns a repeated scan of the markdown code that was just added into a change of the last
    /// position.
    virtual EContext::Result beforeInput(const control::Action &action);
    /// Prepares a markdown position, or refuses one of several units where that is not allowed.
    virtual EContext::Result beforePositionAdd(const control::Action &action);
    /// Remembers what was scanned for a markdown position.
    virtual EContext::Result afterPositionAdd(const control::Action &action);
    /// Stops a change of a markdown position's quantity where that is not allowed.
    virtual EContext::Result beforeApplyModifiers(const control::Action &action) const;
    /// Gives a coupon for markdown goods a number that says so.
    virtual EContext::Result afterCouponAdd(const control::Action &action) const;
    /// The configured minimum price, and never merged with another position.
    virtual void setPropertiesForMarkdownPosition(const QSharedPointer<GoodsItem> &position) const;

    /// Attaches a technical card to a sale that has no card. Always goes on.
    EContext::Result addTechnicalCard(const control::Action &action);
    /// Calculates the cheque and notes the points that can be spent on it.
    /// @throws the exceptions of the client; card and points are then as they were.
    void request(const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result);
    /// The cheque is not paid with points.
    void cancelBonusUsage();
    /// Takes off the document what the service granted, registration included.
    void cancelExternalDiscount(const QSharedPointer<AbstractDocument> &document);
    /// Removes the sticker actions of all positions but those with the greatest total discount.
    /// @param actions all of the answer; sorted by profit on return.
    /// @param capacity the customer's stickers; 0 or less keeps nothing.
    void selectMostProfitableStickersActions(
        const QMap<QString, QVariant> &result, QList<QVariant> &actions, int capacity) const;
    void showNoConnection() const;
    void showInternalError() const;
    /// Prints one receipt per coupon: maps with "Number" and "Message".
    void printCoupons(const QList<QVariant> &coupons) const;

    QSharedPointer<korvelLoyaltyOnline::Interface> interface;
    /// Given by the service for the registered cheque, printed when it is closed. Not kept on the
    /// document: they are gone when the till is switched off in between.
    QList<QVariant> couponsToPrint;
    bool useConfirmation = false; ///< whether spending points needs the customer's confirmation
    /// In points: up to it no code is asked; `verification::noLimit`: never.
    double noConfirmationBonusLimit = verification::noLimit;
    QString stickersActionMarker; ///< part of the attribute names of sticker actions
    bool notUseStickers = false; ///< the customer declined the stickers of this cheque
    QString technicalCardPrefix;
    int technicalCardSuffixLength = 4; ///< in digits
    QString technicalCardName; ///< of the technical cards' group
    bool offlineMode = false; ///< this cheque goes on without the service
    QString lastMarkdownRawData; ///< scanned data of the markdown position that was added last
    bool allowChangeQuantityForMarkdownPositions = true;
    QString markdownCouponPrefix; ///< "%1" is the markdown in per cent
    Log4Qt::Logger *logger; ///< not owned; lives to the end of the program

private:
    void readSettings();
    void addTriggers();
    void finishCheque(const QSharedPointer<AbstractDocument> &document);
    void queueOffline(const QSharedPointer<AbstractDocument> &document) const;

    void applyCalculation(
        const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result);
    void takeOverMessages(const QMap<QString, QVariant> &result);
    void returnInapplicableCoupons(const QSharedPointer<AbstractDocument> &document,
        const QMap<QString, QVariant> &result) const;
    void goOfflineAfterInternalError(const QSharedPointer<AbstractDocument> &document,
        const KorvelInternalErrorException &error);
    void goOfflineWithoutConnection(
        const QSharedPointer<AbstractDocument> &document, const QMap<QString, QVariant> &result);

    /// A new record without code when confirmation is used, otherwise null.
    [[nodiscard]] QSharedPointer<korvel::ConfirmationInfo> makeConfirmation() const;
    void setPaidByBonus(double points) const;

    void acceptStickers(QMap<QString, QVariant> &result);
    void declineStickers(const QMap<QString, QVariant> &result);

    void undoRegistration(const QSharedPointer<AbstractDocument> &document,
        const QSharedPointer<DocumentCardRecord> &card) const;

    void payWithPoints(const QSharedPointer<AbstractDocument> &document,
        const QSharedPointer<DocumentCardRecord> &card);
    void takeOverAvailablePoints(const QSharedPointer<AbstractDocument> &document,
        const QSharedPointer<DocumentCardRecord> &card, const QMap<QString, QVariant> &result);
    void verifyWriteOff(const QMap<QString, QVariant> &result) const;
    void applyPayment(
        const QSharedPointer<AbstractDocument> &document, const QMap<QString, QVariant> &result);
    void goOfflineWithoutPoints();

    [[nodiscard]] QMap<QString, QVariant> registerCheque(
        const QSharedPointer<AbstractDocument> &document) const;
    void applyRegistration(const QSharedPointer<AbstractDocument> &document,
        const QSharedPointer<DocumentCardRecord> &card, const QMap<QString, QVariant> &result);
};
