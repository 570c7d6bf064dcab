#pragma once

#include "emulator/books/changes.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <deque>
#include <optional>

namespace emulator {

struct Exchange
{
    qint64 id = 0;
    QDateTime at; ///< UTC
    QString operation; ///< empty: the request could not be read
    QString card;
    QString pos;
    QString number; ///< of the cheque
    std::optional<int> code; ///< nothing: no return code was answered
    int status = 0; ///< HTTP
    double milliseconds
        = 0; ///< from the whole request until the answer's end, ordered waits included
    BooksChange books;
    QString fault; ///< the words of the fault that struck; empty: none
    QByteArray request;
    QByteArray answer; ///< as it was composed, also when it was not sent
};

/// The last exchanges, as many as are kept within a fixed number and size.
class ExchangeLog
{
public:
    void add(Exchange exchange);
    void clear();

    const std::deque<Exchange> &exchanges() const { return m_exchanges; }
    const Exchange *find(qint64 id) const; ///< null: not kept, or not yet there
    qint64 lastId() const { return m_lastId; }
    int timesCleared() const { return m_timesCleared; }

private:
    std::deque<Exchange> m_exchanges;
    qsizetype m_bytes = 0;
    qint64 m_lastId = 0;
    int m_timesCleared = 0;
};

} // namespace emulator
