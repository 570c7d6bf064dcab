#pragma once

#include "host/export.h"
#include "host/framework/tr.h"

#include <stdexcept>

/// Root of everything that plug-ins and the host report to the cashier by throwing.
///
/// Carries the message for the cashier and a flag that travels with it: true when the message is
/// meant for the customer too.
class POSHOST_EXPORT BasicException : public std::runtime_error
{
public:
    explicit BasicException(const tr::Tr &message);
    BasicException(const BasicException &) = default;
    BasicException &operator=(const BasicException &) = default;
    ~BasicException() override;

    [[nodiscard]] const tr::Tr &tr() const { return m_message; }
    [[nodiscard]] bool flag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

private:
    tr::Tr m_message;
    bool m_flag = false;
};
