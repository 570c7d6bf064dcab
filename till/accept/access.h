#pragma once

#include "till/accept/options.h"

namespace till::accept {

/// Where the service is and by which name and password: from the options; without a URL there from
/// the till's settings, which are read then. Sets the trusted certificates for the exchanges.
/// @throws CannotDo when something is missing, cannot be read or does not fit together.
[[nodiscard]] Access accessOf(const Options &options);

/// The value of "Authorization": Basic. Only for what goes over the wire.
[[nodiscard]] QString basicAuthorization(const QString &user, const QString &password);

} // namespace till::accept
