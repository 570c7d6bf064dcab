#pragma once

#include "emulator/books/database.h"

#include <QStringList>

namespace emulator {

/// Every row of every table of the database, one line each, without the tables named.
QStringList tablesAsText(Database &database, const QStringList &without);

} // namespace emulator
