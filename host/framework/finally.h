#pragma once

#include <functional>
#include <utility>

/// Runs a function when it goes out of scope, whether the scope was left by return or by exception.
///
/// The function must not throw: it may run while another exception is on its way.
class Finally
{
public:
    explicit Finally(std::function<void()> action)
        : m_action(std::move(action))
    { }
    ~Finally() { m_action(); }
    Finally(const Finally &) = delete;
    Finally &operator=(const Finally &) = delete;

private:
    std::function<void()> m_action;
};
