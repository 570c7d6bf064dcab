#pragma once

#include "host/framework/spokenerror.h"

#include <QString>

namespace till {

/// A command or one of its arguments is wrong, or cannot be carried out now.
///
/// Thrown before anything has changed: documents, plug-in and files are as they were.
class CannotDo : public SpokenError
{
public:
    /// @param reason what is wrong, in one line.
    /// @param remedy what to do instead, at the prompt and in the window.
    CannotDo(const tr::Tr &reason, const tr::Tr &remedy);
    ~CannotDo() override;

    /// Both together, "reason; remedy", in the language of the interface.
    [[nodiscard]] QString text() const { return tr().ui(); }
};

} // namespace till
