#pragma once

#include <QString>

/// What the two engines of the queue want said differently; all other statements are the same.
///
/// SQLite gives a transaction the whole file. On the server transactions run side by side: rows and
/// lanes are locked one by one, and what all of them would change is not changed at all.
struct SqlDialect
{
    QString driver; ///< Qt's name of it
    QString begin; ///< begins a transaction that may write
    QString skipLocked; ///< behind a SELECT: locks its rows, but for those that others have locked
    /// Gives number and lane of the one row that the SELECT in place of "%1" gives, and whether the
    /// transaction has that lane now, which no other one gets until it ends.
    QString takeLane;
    QString noteFact; ///< remembers a value under a name; one of two that come at once may get lost
    QString sumCounts; ///< makes the rows of the counts few again; empty: they are
    QString now; ///< gives the engine's own time, as times stand in the table; empty: has none

    /// Whether several machines work the queue: what one of them sees of processes and times holds
    /// for itself only.
    [[nodiscard]] bool isShared() const { return !now.isEmpty(); }
};

namespace sqldialect {

[[nodiscard]] const SqlDialect &sqlite();
[[nodiscard]] const SqlDialect &postgresql();

} // namespace sqldialect
