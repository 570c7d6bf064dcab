#pragma once

#include <QString>

namespace emulator {

class Database;

/// Makes the tables in an empty database; throws BooksError for one that another version of the
/// program, or another program, has made. `path` is for the error's text.
void createTables(Database &database, const QString &path);

/// Empties all tables.
void clearTables(Database &database);

} // namespace emulator
