#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// Where requests are answered: the rules of the data file applied to what the books hold.
///
/// A calculation ("Soft") leaves the books as they are. A registration, a return and a rollback
/// change them in one database transaction, together with the answer that is kept for a repeat.
/// All operations throw BooksError when the books cannot be read or written; nothing has
/// happened then. A debug build adds the books of the card up after each request and throws
/// BooksError when they are not in order, which is a mistake of this program. One thread.
class Desk
{
public:
    /// Puts the data's cards into the books; a card that is new there gets its opening balance.
    /// The database must outlive the desk.
    Desk(ServiceData data, Database &database, Clock clock);

    Answer answer(const Request &request);

    /// An answer with this code, and nothing done. For 81400 on a sale it holds all figures.
    Answer refuse(const Request &request, const Outcome &outcome);

    /// Forgets everything that happened and starts with the data's cards again.
    void reset();

    const Books &books() const { return m_books; }

    /// Codes for the card that wait to be typed and still hold; for all cards when it is empty.
    std::vector<WaitingCode> waitingCodes(const QString &card = {}) const;

private:
    DeskContext context();
    std::optional<Outcome> forcedOutcome(const Request &request) const;

    const ServiceData m_data;
    Books m_books;
    const Clock m_clock;
};

} // namespace emulator
