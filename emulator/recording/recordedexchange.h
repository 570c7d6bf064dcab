#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <chrono>
#include <map>
#include <optional>

namespace emulator {

/// One request of a till and what the real service answered.
struct RecordedExchange
{
    qint64 number = 0; ///< from 1, in the order in which the requests came
    QDateTime time; ///< UTC, of the whole request's arrival
    QString operation; ///< empty: the request could not be read
    QString card; ///< empty likewise
    std::optional<int> status; ///< HTTP; nothing: there was no whole answer
    QString failure; ///< why there was none
    std::chrono::milliseconds timeTaken{0}; ///< until the answer or the failure
    QByteArray contentType; ///< of the answer
    std::map<QByteArray, QByteArray> requestHeaders; ///< without those that hold credentials
    bool hasMaskedCards = false;
    QByteArray request;
    QByteArray answer;

    /// "000001-soft", what the names of its files begin with.
    QString name() const;
    QString jsonFile() const; ///< "000001-soft.json"
    QString requestFile() const; ///< "000001-soft-request.xml"
    QString answerFile() const; ///< "000001-soft-answer.xml"
};

/// The exchange's JSON file; the two messages are not in it.
QByteArray toJson(const RecordedExchange &exchange);

/// Reads what a replay needs of such a file: status, time taken, content type, masking. Members
/// that it does not know are passed over. Throws DataError.
RecordedExchange exchangeFromJson(const QByteArray &json);

} // namespace emulator
