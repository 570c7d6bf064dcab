#pragma once

#include "host/framework/action.h"

#include <functional>

namespace EContext {

/// Where at the till an action happens.
enum class Code : int
{
    Cheque = 6, ///< an open cheque or the empty desk before it
};

/// What a handler says to the action that it hooked in on.
enum class Result : int
{
    Refuse = 0, ///< the action does not happen
    Stop = 1, ///< the action ends here; the handler has done what was to be done
    Continue = 2, ///< the action goes on unchanged
};

} // namespace EContext

/// A plug-in's hook on an action of the cashier. A value type.
class ActionTrigger
{
public:
    enum class Order : int
    {
        After = 0,
        Before = 1
    };
    /// What becomes of a result of the handler; the only way known is to obey it.
    enum class Result : int
    {
        Obey = 0
    };
    /// Rank among the triggers of one action and order; lower ones run first.
    enum class Priority : int
    {
        First = 1,
        Second = 2,
        Third = 3
    };
    using Handler = std::function<EContext::Result(const control::Action &)>;

    ActionTrigger(EContext::Code context, control::EActionType actionType, Order order,
        Handler handler, Result result, Priority priority)
        : m_context(context)
        , m_actionType(actionType)
        , m_order(order)
        , m_handler(std::move(handler))
        , m_result(result)
        , m_priority(priority)
    { }

    [[nodiscard]] EContext::Code getContext() const { return m_context; }
    [[nodiscard]] control::EActionType getActionType() const { return m_actionType; }
    [[nodiscard]] Order getOrder() const { return m_order; }
    [[nodiscard]] const Handler &getHandler() const { return m_handler; }
    [[nodiscard]] Result getResult() const { return m_result; }
    [[nodiscard]] Priority getPriority() const { return m_priority; }

private:
    EContext::Code m_context;
    control::EActionType m_actionType;
    Order m_order;
    Handler m_handler;
    Result m_result;
    Priority m_priority;
};
