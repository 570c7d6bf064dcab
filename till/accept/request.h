#pragma once

#include "till/accept/dialogue.h"
#include "till/accept/flow.h"
#include "till/accept/options.h"

#include <QByteArray>
#include <QDomElement>

namespace till::accept {

/// A request as it is sent.
struct Request
{
    QByteArray text;
    QDomElement payload; ///< BalanceRequest or ChequeRequest; null where the text is no request

    /// Registers a sale or a return, or rolls one back.
    [[nodiscard]] bool books() const;
    /// "Sale", "Return" or "Rollback"; empty for a question for a balance.
    [[nodiscard]] QString operation() const;
    /// Text of the element at that path of children; empty where there is none.
    [[nodiscard]] QString textAt(const QStringList &path) const;
};

/// Composes requests from the samples of `protocol/samples/`: the sample's elements with the card,
/// the sender, the time and the positions of this run, and what a step changes of it.
class RequestComposer
{
public:
    /// @param card     that is asked about unless a step says otherwise.
    /// @param articles at least one; a step that wants more of them begins again with the first.
    RequestComposer(QString protocolFolder, QString card, Sender sender, QList<Article> articles);

    /// @throws ExpressionError, CannotDo when a sample or a path is not there.
    [[nodiscard]] Request compose(const Step &step, Dialogue &dialogue) const;
    /// The number that positions know an article of the run by; 1 when it is none of them.
    [[nodiscard]] int articleNumber(const QString &code) const;

private:
    [[nodiscard]] QDomDocument sample(const QString &name) const;
    void fillSender(const QDomDocument &document, const QDomElement &payload) const;
    void fillPositions(QDomElement payload, const QList<Position> &positions) const;

    QString m_protocolFolder;
    QString m_card;
    Sender m_sender;
    QList<Article> m_articles;
};

/// Indented, without comments; as it is where it is no XML, or none that is read in good time.
[[nodiscard]] QString indented(const QByteArray &xml);

} // namespace till::accept
