#pragma once

#include "host/documents/catalogue.h"
#include "host/framework/action.h"
#include "host/framework/basicloyaltysystem.h"
#include "host/framework/event.h"
#include "host/printing/receipt.h"
#include "host/storage/documentstore.h"
#include "till/core/exchanges.h"
#include "till/core/outcome.h"
#include "till/core/withoutloyalty.h"

#include <QSharedPointer>
#include <QString>

#include <functional>
#include <optional>

namespace till {

/// What a position is to be made of beside its article.
struct PositionRequest
{
    QString code; ///< the article's
    double quantity = 1.0; ///< in units of the article, greater than 0
    QString rawData; ///< what was scanned; empty when the code was keyed
    std::optional<double> price; ///< for one unit, instead of the catalogue's
    std::optional<QString> extendedOptions; ///< instead of the catalogue's
};

/// What is paid with.
enum class PaymentKind
{
    Cash,
    Card
};

/// The till's part in a sale: the open document and what the cashier does with it.
///
/// Knows neither scripts nor terminals; what a cashier is to see comes back in the `Outcome`. All
/// operations throw `CannotDo`, before anything has changed, when they are out of place, and
/// `StorageError` when the state folder cannot be read or written. Nothing that leaves the plug-in
/// by exception leaves the till: it is journalled and becomes the outcome's refusal. The document
/// is on disk when an operation returns. On the host's thread; one at a time.
class Till
{
public:
    /// None of these is owned; all must outlive the till.
    Till(BasicLoyaltySystem &system, const Catalogue &catalogue, DocumentStore &store,
        const Exchanges &exchanges);
    Q_DISABLE_COPY_MOVE(Till)

    /// Lets the till sell without the loyalty system: from its start on or, where a document with a
    /// card was left open, from the end of that one on. To be called before `start`.
    /// @param without what stands in the system's place; not owned, must outlive the till.
    void switchLoyaltyOff(WithoutLoyalty &without);
    /// Whether it sells without it now.
    [[nodiscard]] bool isLoyaltyOff() const { return m_isLoyaltyOff; }
    /// Whether the loyalty system has a part in the document, and must be there to finish it.
    [[nodiscard]] static bool isPartOfLoyalty(const AbstractDocument &document);

    /// Takes up the document that was left open, or opens the empty desk; opens the outgoing queue.
    /// @return what the cashier must hear: that loyalty is off; of the queue, that it was damaged
    /// or
    ///         cannot be opened.
    QList<tr::Tr> start();
    /// The open document; null at an empty desk.
    [[nodiscard]] QSharedPointer<AbstractDocument> document() const;

    Outcome openSale();
    /// A return without a sale.
    Outcome openReturn();
    /// A return of a closed sale, with its positions and card.
    Outcome openReturnOf(const QString &number);

    /// Identifies a card and attaches it when it is accepted. Opens a sale at an empty desk.
    Outcome presentCard(const QString &number, ECardNumberType type);
    /// A scan of something yet unknown. Opens a sale at an empty desk.
    Outcome scan(const QString &data);
    /// Always makes a new position. Opens a sale at an empty desk.
    Outcome addPosition(const PositionRequest &request);
    /// @param quantity greater than 0.
    Outcome changeQuantity(int posnum, double quantity);
    Outcome removePosition(int posnum);
    /// @param rawData what was scanned; empty when the number was keyed. Opens a sale at an empty
    ///        desk.
    Outcome addCoupon(const QString &number, const QString &rawData);

    /// Calculates the sale with the loyalty system.
    Outcome calculate();
    /// Pays with points. Without an amount none is chosen: the loyalty system takes what it can.
    Outcome payWithPoints(std::optional<double> amount);
    /// @param amount greater than 0; without one the rest.
    Outcome pay(PaymentKind kind, std::optional<double> amount);
    /// What is still to be paid.
    [[nodiscard]] double rest() const;

    /// What the printer would get if the open document, as it is now, were printed; empty at an
    /// empty desk. Where the template cannot be used, why. Prints nothing and asks nobody.
    [[nodiscard]] QString receiptPreview() const;

    Outcome close();
    Outcome cancel();

    /// Sends what waits in the outgoing queue, once.
    Outcome deliver();
    /// Tells the shift's sums and open ends, and begins the next one.
    Outcome closeShift();

private:
    [[nodiscard]] QSharedPointer<AbstractDocument> makeDocument(EDocumentType type);
    void open(const QSharedPointer<AbstractDocument> &document);
    void openSaleWhereNoneIs();
    void restore(const QSharedPointer<AbstractDocument> &document);
    void leave(Outcome &outcome);
    void turnToSwitchedOff(Outcome &outcome);
    void keep();

    [[nodiscard]] QSharedPointer<AbstractDocument> openDocument() const;
    [[nodiscard]] QSharedPointer<AbstractDocument> openSaleOr(const tr::Tr &reason) const;
    [[nodiscard]] QSharedPointer<GoodsItem> openPosition(int posnum) const;
    [[nodiscard]] bool isRegistered() const;
    [[nodiscard]] bool isPaidWithPoints() const;
    void requireEmptyDesk() const;
    void requireChangeable() const;
    void requireCardAllowed() const;
    void requireGoodsAllowed() const;
    void requireCouponAllowed(const QString &number) const;
    void requireScanAllowed(const QString &data) const;
    void requireNoMoreThanSold(int posnum, double quantity) const;
    void requireRightlyPaid() const;

    void notify(Outcome &outcome, const Event &event) const;
    /// Calls an operation of the plug-in whose false is a refusal.
    void request(Outcome &outcome, const QString &name, const std::function<bool()> &operation);
    /// Makes a call of the plug-in between its two events, then takes over what it granted. What
    /// the plug-in saves meanwhile is not written: the caller keeps the document afterwards.
    void announce(Outcome &outcome, const std::function<void()> &call);
    void runAction(
        const control::Action &action, Outcome &outcome, const std::function<void()> &carryOut);

    void attachCard(const QString &number, ECardNumberType type, Outcome &outcome);
    void insertPosition(const Article &article, const PositionRequest &request, Outcome &outcome);
    void insertCoupon(const QString &number, const QString &rawData, Outcome &outcome);
    void setQuantity(GoodsItem &position, double quantity, Outcome &outcome);
    void carryOutScan(const control::Action &action, const QString &data, Outcome &outcome);
    void addScanned(const QString &data, Outcome &outcome);
    [[nodiscard]] QSharedPointer<GoodsItem> lastAddedPosition() const;

    [[nodiscard]] double sumWithoutPoints() const;
    [[nodiscard]] std::optional<tr::Tr> whyNoPoints(std::optional<double> amount, Outcome &outcome);
    [[nodiscard]] double paid() const;
    void dropPayments();
    void payRest();
    [[nodiscard]] bool confirmClosing(Outcome &outcome);
    void registerSale(Outcome &outcome);
    void commitReturn(Outcome &outcome);
    [[nodiscard]] QString takeDoubtfulBooking() const;
    void noteThatRollbackBegins();
    [[nodiscard]] bool settleBegunRegistration(Outcome &outcome);
    void putOut(Outcome &outcome);
    [[nodiscard]] receipt::Booking booking() const;
    [[nodiscard]] receipt::Booking expectedBooking() const;
    void printReceipt(Outcome &outcome) const;
    void deliverAfterClose(Outcome &outcome);
    [[nodiscard]] static QList<tr::Tr> openQueue();

    BasicLoyaltySystem *m_system;
    WithoutLoyalty *m_without = nullptr; ///< null: loyalty is on
    bool m_isLoyaltyOff = false;
    const Catalogue &m_catalogue;
    DocumentStore &m_store;
    const Exchanges &m_exchanges;
};

} // namespace till
