#pragma once

#include "host/documents/abstractdocument.h"
#include "host/storage/documentstore.h"

#include <QList>
#include <QSharedPointer>

namespace till {

/// What the documents of a shift come to. Money and points.
struct ShiftSums
{
    int sales = 0;
    double sold = 0.0; ///< after discounts and points
    int returns = 0;
    double returned = 0.0;
    double pointsEarned = 0.0;
    double pointsSpent = 0.0;
};

[[nodiscard]] ShiftSums sumUp(const QList<QSharedPointer<AbstractDocument>> &closed);

/// The shift: the documents that were closed since the last one ended.
///
/// Where it began is kept in the state folder as the number of the last document before it.
class Shift
{
public:
    /// @param store not owned; must outlive this.
    explicit Shift(const DocumentStore &store);

    /// Its documents so far, by their numbers.
    /// @throws StorageError when a document or the mark cannot be read.
    [[nodiscard]] QList<QSharedPointer<AbstractDocument>> documents() const;
    /// Begins the next one behind these documents.
    /// @throws StorageError when the mark cannot be read or written; the shift then goes on.
    void end(const QList<QSharedPointer<AbstractDocument>> &documents) const;

private:
    const DocumentStore &m_store;
};

} // namespace till
