#pragma once

#include "till/accept/spoken.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// The flows of `protocol/acceptance/` as they are read. docs/acceptance.md explains each member.
namespace till::accept {

enum class Operator
{
    Is,
    IsNot,
    AtMost,
    AtLeast,
    Contains
};

/// What is to be compared, both sides as expressions (see "till/accept/expression.h").
struct Comparison
{
    QString that;
    Operator relation = Operator::Is;
    QString other;
    double within = 0; ///< money or points that equal amounts may differ by
    QString each; ///< a path; where given the comparison holds for every element of it, as "item"
};

/// What must be so for a step or a check to make sense, and what is said where it is not.
struct Condition
{
    Comparison comparison;
    Spoken otherwise;
};

struct Check
{
    QString rule;
    Comparison comparison;
    std::optional<Condition> onlyIf;
    bool isNeeded = false; ///< where it fails the rest of the flow makes no sense
};

struct Position
{
    int article = 1; ///< which of the run's articles, from 1
    QString quantity;
    int number = 0; ///< 0: its place in the cheque, from 1
};

/// One exchange.
struct Step
{
    QString name;
    QString sample; ///< of protocol/samples/, without ".xml"; empty: `body` is sent
    QString body;
    QStringList without; ///< paths that are taken out of the sample
    QList<Position> positions;
    QStringList coupons; ///< expressions
    QMap<QString, QString> values; ///< path and expression
    QMap<QString, QString> replacements; ///< in the request's text
    bool hasWrongCredentials = false;
    bool expectsFault = false; ///< the rules of every answer do not hold for it
    bool asksHolder = false; ///< the holder of the card is then told a code
    std::optional<Condition> onlyIf; ///< for it and the rest of the flow
    QList<Check> checks;
};

struct FindingCase
{
    QString id;
    Spoken text;
    QList<Comparison> when;
};

/// What a run finds out about a service, whether it is right or not.
struct Finding
{
    QString id;
    Spoken about;
    QList<FindingCase> cases; ///< the first whose comparisons all hold
    FindingCase otherwise;
};

struct Flow
{
    QString id;
    Spoken title;
    bool writes = false; ///< it registers cheques
    QList<Step> steps;
    QList<Finding> findings;
};

struct Rule
{
    QString id;
    QString section; ///< of docs/protocol.md
    Spoken text;
};

struct Acceptance
{
    QList<Rule> rules;
    QList<Flow> flows; ///< in the order of their files' names

    /// Null when there is none of that name.
    [[nodiscard]] const Rule *rule(const QString &id) const;
};

/// The rules that every answer is looked at for.
namespace everyanswer {
inline const QString comes = QStringLiteral("answer.comes");
inline const QString status = QStringLiteral("answer.status");
inline const QString schema = QStringLiteral("answer.schema");
inline const QString kind = QStringLiteral("answer.kind");
inline const QString prefix = QStringLiteral("answer.prefix");
inline const QString refusal = QStringLiteral("answer.refusal");
} // namespace everyanswer

/// The rules that a flow looks at, those of every answer first, each once. Those are left out
/// where the flow expects nothing but faults.
[[nodiscard]] QStringList rulesOf(const Flow &flow);

} // namespace till::accept
