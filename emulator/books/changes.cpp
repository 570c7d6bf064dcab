#include "emulator/books/changes.h"

namespace emulator {

BooksMark::BooksMark(const Books &books)
    : m_books(books)
    , m_entry(books.ledger.lastId())
    , m_transaction(books.transactions.lastId())
{ }

BooksChange BooksMark::changesSince() const
{
    BooksChange change;
    if (m_books.transactions.lastId() != m_transaction)
        change.transaction = m_books.transactions.lastId();
    if (m_books.ledger.lastId() != m_entry)
        change.entries = m_books.ledger.entriesAfter(m_entry);
    return change;
}

} // namespace emulator
