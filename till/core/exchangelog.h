#pragma once

#include "host/framework/tr.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

#include <chrono>

namespace till {

/// One exchange as it went over the wire. Without headers, and so without credentials.
struct ExchangeRecord
{
    QDateTime begun; ///< by the host's clock
    std::chrono::milliseconds duration{};
    QByteArray request;
    QByteArray answer; ///< also one that was no success; empty: none came
    int error = 0; ///< `RestClient::errorCode`
    tr::Tr errorMessage; ///< empty where there was no error
};

/// The last exchanges of the till, kept in memory.
class ExchangeLog
{
public:
    /// How many are kept.
    static constexpr qsizetype capacity = 50;
    /// Bytes that are kept of a request and of an answer; what is longer is cut.
    static constexpr qsizetype longestText = qsizetype{256} * 1024;

    void add(const ExchangeRecord &record);
    /// Oldest first.
    [[nodiscard]] const QList<ExchangeRecord> &records() const { return m_records; }

private:
    QList<ExchangeRecord> m_records;
};

} // namespace till
