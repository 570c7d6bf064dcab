#pragma once

#include <QString>

namespace till {

/// What `korvel-till explain` was called with.
struct ExplainOptions
{
    /// What the words after the command are.
    enum class Meaning
    {
        Either, ///< whichever there is
        Cheque,
        Card,
    };

    QString asked; ///< number of a cheque or a card
    Meaning meaning = Meaning::Either;
    QString correlationId; ///< beginning of the one that is meant; empty: all
    QString configFile; ///< empty: not given
    QString stateFolder; ///< empty: not given
    QString bundle; ///< an archive for support instead of a state folder; empty: not given
    bool json = false;
    bool withService = true; ///< ask the service for the card's balance
};

/// `korvel-till explain`: tells where the points of a cheque or a card are, on standard output.
/// Changes nothing, and works beside a running till.
/// @return the exit status of the program: 0, or 1 when there is no such cheque or card.
/// @throws CannotDo when it is not clear what is meant; ConfigError or StorageError when
///         configuration, state folder or archive cannot be used.
[[nodiscard]] int explainPoints(const ExplainOptions &options);

} // namespace till
