#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QList>
#include <QString>
#include <QStringList>

namespace till::accept {

/// What came of a request.
struct Answer
{
    /// 0 after a 2xx answer, otherwise one of `RestClient::Error` or the HTTP status.
    int error = 0;
    QString errorText; ///< what the host says of it; empty without an error
    QByteArray body; ///< also of an answer that was no success
    QDomDocument document; ///< null where the body is no XML, or none that can be read in time
    /// BalanceResponse, ChequeResponse or Fault; null where there is none of them.
    QDomElement payload;

    /// An HTTP answer came, whatever it says.
    [[nodiscard]] bool isThere() const;
    /// As far as the host tells it: 200 stands for every success.
    [[nodiscard]] int httpStatus() const;
    /// The payload's name; "-" where there is none.
    [[nodiscard]] QString kind() const;
};

/// Takes the body apart.
void readBody(Answer &answer);

/// The element's name without its prefix.
[[nodiscard]] QString nameOf(const QDomElement &element);
/// The elements that a path of children's names leads to, in order.
[[nodiscard]] QList<QDomElement> elementsAt(const QDomElement &from, const QStringList &path);
/// Everything that the payload says, a line for each element with its text; without prefixes,
/// comments and blanks between elements, which mean nothing.
[[nodiscard]] QString linesOf(const QDomElement &payload);

} // namespace till::accept
