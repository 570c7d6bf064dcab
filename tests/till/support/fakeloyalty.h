#pragma once

#include "host/framework/baseactivitylistener.h"
#include "host/framework/basicloyaltysystem.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// A loyalty system that does what the test says and notes what it was asked for, events included.
class FakeLoyalty : public BaseActivityListener, public BasicLoyaltySystem
{
    Q_OBJECT

public:
    using Behaviour = std::function<bool()>;

    FakeLoyalty();

    /// What an operation, by its name, does and answers; without one it answers true.
    QMap<QString, Behaviour> behaviour;
    /// Names of the operations called and "event CODE", in order.
    QStringList calls;

    void giveDiscount(int position, double sum);
    void givePoints(int position, double sum);
    void giveBonusRecord(double amount);
    void refuseWith(const QString &id, const QString &text, bool flag);
    void setAvailablePoints(double points) { m_pointsForSpend = points; }
    [[nodiscard]] double chosenPoints() const { return m_pointsToSpend; }
    void setMessageToCashier(const QString &text) { m_messagesToCashier = QStringList{text}; }
    void setMessageToClient(const QString &text) { m_messagesToClient = QStringList{text}; }
    void hookIn(control::EActionType type, ActionTrigger::Order order,
        const ActionTrigger::Handler &handler,
        ActionTrigger::Priority priority = ActionTrigger::Priority::First);

    bool init() override { return true; }
    void handleEvent(const Event &event) override;
    bool identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type) override;
    bool request(const QSharedPointer<AbstractDocument> &document) override;
    bool commit(const QSharedPointer<AbstractDocument> &document) override;
    bool rollback(const QSharedPointer<AbstractDocument> &document) override;
    void setPointsForSpend(
        const QSharedPointer<AbstractDocument> &document, double points) override;
    bool spendPoints() override;
    bool hasPointsForEarn() override;
    bool restoreLoyaltySystem() override;
    void beforePutoutCheck() override;
    void afterPutoutCheck() override;

    QSharedPointer<DocumentCardRecord> presented; ///< the record of the last identification
    ECardNumberType presentedHow = ECardNumberType::Swiped;

private:
    bool behave(const QString &operation);
};
