#pragma once

#include "shop/makers.h"
#include "shop/words.h"

#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QVariant>

#include <functional>

namespace EActivityListener {
enum Event
{
    ChequeClosed = 10,
    ChequeCancelled = 12,
    DocumentEntered = 22,
    LoyaltyRequestStarted = 72,
    LoyaltyRequestFinished = 73,
    LoyaltyError = 253
};
} // namespace EActivityListener

namespace EContext {
enum class Code
{
    Cheque = 6
};
enum class Result
{
    Refuse,
    Stop,
    Continue
};
} // namespace EContext

namespace control {

enum class EActionType
{
    ApplyModifiers = 5,
    Total = 133,
    PayWithPoints = 144,
    Input = 192,
    AddCoupon = 198,
    AddPosition = 201
};

/// Nothing can be hooked in on at this desk.
struct Action
{
    QVariant value(const QString &, const QVariant &otherwise = {}) const { return otherwise; }
    void insert(const QString &, const QVariant &) const { }
};

} // namespace control

namespace shop {

class Event
{
public:
    Event(EActivityListener::Event code, const QMap<QString, QVariant> &arguments = {})
        : m_arguments(arguments)
        , m_code(code)
    { }
    Event() = default;

    EActivityListener::Event getCode() const { return m_code; }
    void addArgument(const QString &name, const QVariant &value) { m_arguments[name] = value; }

private:
    QMap<QString, QVariant> m_arguments;
    EActivityListener::Event m_code = EActivityListener::DocumentEntered;
};

class SHOP_EXPORT BaseActivityListener : public QObject
{
    Q_OBJECT

public:
    virtual void handleEvent(const Event &event) = 0;
};

class SHOP_EXPORT ActivityNotifier
{
public:
    void subscribe(BaseActivityListener *listener);
    void notify(const Event &event);

private:
    QList<BaseActivityListener *> m_listeners;
};

struct ActionTrigger
{
    enum class Order
    {
        Before,
        After
    };
    enum class Result
    {
        Obey
    };
    enum class Priority
    {
        First,
        Second,
        Third
    };

    ActionTrigger(EContext::Code, control::EActionType, Order,
        const std::function<EContext::Result(const control::Action &)> &, Result, Priority)
    { }
};

struct CurrentTime
{
    QDateTime currentDateTime() const { return QDateTime::currentDateTime(); }
};

struct DocumentWatcher
{
    void couponChanged(const QString &, const QString &) { }
};

} // namespace shop
