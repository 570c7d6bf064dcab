#pragma once

#include "till/accept/answer.h"

#include <QDateTime>
#include <QMap>
#include <QString>

#include <functional>

namespace till::accept {

/// One step's request and what came of it.
struct Exchange
{
    QString step;
    QByteArray request;
    QDomElement payload; ///< of the request; null where it is none
    Answer answer;
    QString holderCode; ///< what the holder of the card was told; empty: not known
};

/// What till and service have said to each other in a flow, and the names that its expressions may
/// use beside that.
///
/// Belongs to one flow of one run, on one thread.
class Dialogue
{
public:
    /// @param variables names of the run: card, unknownCard, coupon, user.
    /// @param newNumber makes a cheque number that no run has used.
    Dialogue(QMap<QString, QString> variables, std::function<QString()> newNumber);

    void add(const Exchange &exchange) { m_exchanges.insert(exchange.step, exchange); }
    /// Null before the step.
    [[nodiscard]] const Exchange *find(const QString &step) const;
    [[nodiscard]] const QMap<QString, QString> &variables() const { return m_variables; }
    /// The cheque number that the flow knows by this name; made when it is first asked for.
    [[nodiscard]] QString number(const QString &name);

private:
    QMap<QString, QString> m_variables;
    std::function<QString()> m_newNumber;
    QMap<QString, Exchange> m_exchanges;
    QMap<QString, QString> m_numbers;
};

} // namespace till::accept
