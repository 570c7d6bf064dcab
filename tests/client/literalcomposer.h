#pragma once

#include "tests/client/randomcheque.h"

#include <QDomDocument>

/// The request of a sale, written the obvious way: each element after the other as the rules name
/// them, settings and masks looked up for each position anew. What the client composes is compared
/// with it.
/// @param now what the clock says.
[[nodiscard]] QDomDocument literallyComposed(
    const RandomCheque &cheque, const RequestSettings &settings, const QDateTime &now);
