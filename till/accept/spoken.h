#pragma once

#include <QString>

namespace till::accept {

/// A text of the flows' files, which bring their own translation: whoever adds a flow needs no
/// program built anew.
struct Spoken
{
    QString english;
    QString russian;

    /// In the language of the interface.
    [[nodiscard]] QString ui() const;
};

} // namespace till::accept
