#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator {

/// What came of one HTTP exchange on a fresh connection.
struct HttpOutcome
{
    int curlCode = 0; ///< 0: a whole answer came
    int status = 0;
    QByteArray headers;
    QByteArray body;
};

struct HttpOptions
{
    QStringList headers;
    QString userAndPassword; ///< "user:password"
    QString caFile; ///< for https
};

/// The head of an answer without its "Date", which differs between two that are a second apart.
QByteArray withoutDate(const QByteArray &headers);

HttpOutcome httpGet(const QString &url, const HttpOptions &options = {});
HttpOutcome httpDelete(const QString &url, const HttpOptions &options = {});
HttpOutcome httpPost(const QString &url, const QByteArray &body, const HttpOptions &options = {});

} // namespace emulator
