#pragma once

#include "emulator/books/books.h"

namespace emulator {

/// What a request has done to the books.
struct BooksChange
{
    qint64 transaction = 0; ///< that it registered; 0: none
    std::vector<LedgerEntry> entries; ///< that it wrote
};

/// How far the books had come when it was made.
class BooksMark
{
public:
    explicit BooksMark(const Books &books); ///< must outlive this object

    BooksChange changesSince() const;

private:
    const Books &m_books;
    const qint64 m_entry;
    const qint64 m_transaction;
};

} // namespace emulator
