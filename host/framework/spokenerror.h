#pragma once

#include "host/export.h"
#include "host/framework/tr.h"

#include <stdexcept>

/// An error that a person in front of the till reads: one line with what failed, and what to do.
///
/// Root of the errors of files, settings and commands; what plug-ins report is a BasicException.
/// `what()` is the Russian text, for logs and journal; `tr().ui()` is for the interface.
class POSHOST_EXPORT SpokenError : public std::runtime_error
{
public:
    explicit SpokenError(const tr::Tr &message);
    SpokenError(const SpokenError &) = default;
    SpokenError &operator=(const SpokenError &) = default;
    ~SpokenError() override;

    [[nodiscard]] const tr::Tr &tr() const { return m_message; }

private:
    tr::Tr m_message;
};
