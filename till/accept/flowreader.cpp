#include "till/accept/flowreader.h"

#include "host/storage/commentedjson.h"
#include "host/storage/jsonfield.h"
#include "host/storage/storageerror.h"
#include "till/core/cannotdo.h"

#include <QDir>
#include <QFile>
#include <QSet>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

const QString rulesFile = u"rules.json"_s;

[[noreturn]] void failOn(const QString &fileName, const QString &reason)
{
    throw CannotDo(tr::Tr(u"acceptFlowUnusable"_s, u"%1: %2"_s)
                       .arg(QDir::toNativeSeparators(fileName))
                       .arg(reason),
        {u"acceptFlowRemedy"_s,
            u"исправьте файл; что в нём бывает, описано в docs/acceptance.md"_s});
}

QJsonValue parsed(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        failOn(fileName, file.errorString());
    try {
        return commentedjson::parse(file.readAll());
    } catch (const commentedjson::Error &error) {
        failOn(error.placeIn(fileName), error.tr().ui());
    }
}

[[noreturn]] void failAt(const JsonField &field, const QString &expected)
{
    field.fail(tr::Tr(tr::undefined, expected));
}

QString textOr(const JsonField &parent, const QString &name, const QString &usual)
{
    const auto field = parent.find(name);
    return field ? field->text() : usual;
}

bool flagOf(const JsonField &parent, const QString &name)
{
    const auto field = parent.find(name);
    return field && field->flag();
}

QStringList textsOf(const JsonField &parent, const QString &name)
{
    QStringList texts;
    if (const auto field = parent.find(name))
        for (const JsonField &item : field->items())
            texts.append(item.text());
    return texts;
}

QMap<QString, QString> pairsOf(const JsonField &parent, const QString &name)
{
    QMap<QString, QString> pairs;
    if (const auto field = parent.find(name))
        for (const JsonField &item : field->items())
            pairs.insert(item.name(), item.text());
    return pairs;
}

Spoken readSpoken(const JsonField &field)
{
    field.allowOnly({u"en"_s, u"ru"_s});
    return {field.at(u"en"_s).text(), field.at(u"ru"_s).text()};
}

const QList<QPair<QString, Operator>> relations{{u"is"_s, Operator::Is},
    {u"isNot"_s, Operator::IsNot}, {u"atMost"_s, Operator::AtMost},
    {u"atLeast"_s, Operator::AtLeast}, {u"contains"_s, Operator::Contains}};

const QStringList comparisonMembers{u"that"_s, u"is"_s, u"isNot"_s, u"atMost"_s, u"atLeast"_s,
    u"contains"_s, u"within"_s, u"each"_s};

double marginOf(const JsonField &comparison)
{
    const auto field = comparison.find(u"within"_s);
    if (!field)
        return 0;
    bool isNumber = false;
    const double margin = field->text().toDouble(&isNumber);
    if (!isNumber || !(margin >= 0))
        failAt(*field, u"\"0.01\""_s);
    return margin;
}

Comparison readComparison(const JsonField &field)
{
    Comparison comparison;
    comparison.that = field.at(u"that"_s).text();
    int given = 0;
    for (const auto &[name, relation] : relations)
        if (const auto other = field.find(name)) {
            comparison.relation = relation;
            comparison.other = other->text();
            ++given;
        }
    if (given != 1)
        failAt(field, u"is, isNot, atMost, atLeast | contains"_s);
    comparison.within = marginOf(field);
    comparison.each = textOr(field, u"each"_s, {});
    return comparison;
}

std::optional<Condition> readCondition(const JsonField &parent)
{
    const auto field = parent.find(u"if"_s);
    if (!field)
        return std::nullopt;
    field->allowOnly(comparisonMembers + QStringList{u"otherwise"_s});
    return Condition{readComparison(*field), readSpoken(field->at(u"otherwise"_s))};
}

class FlowReader
{
public:
    FlowReader(const Acceptance &acceptance, const QDir &samples)
        : m_acceptance(acceptance)
        , m_samples(samples)
    { }

    [[nodiscard]] Flow flow(const JsonField &whole) const
    {
        whole.allowOnly({u"flow"_s, u"title"_s, u"writes"_s, u"steps"_s, u"findings"_s});
        Flow flow;
        flow.id = whole.at(u"flow"_s).text();
        flow.title = readSpoken(whole.at(u"title"_s));
        flow.writes = flagOf(whole, u"writes"_s);
        QSet<QString> names;
        for (const JsonField &item : whole.at(u"steps"_s).items()) {
            flow.steps.append(step(item));
            if (names.contains(flow.steps.last().name))
                failAt(item.at(u"step"_s), u"a name of its own"_s);
            names.insert(flow.steps.last().name);
        }
        if (const auto findings = whole.find(u"findings"_s))
            for (const JsonField &item : findings->items())
                flow.findings.append(finding(item));
        return flow;
    }

private:
    [[nodiscard]] Step step(const JsonField &field) const
    {
        field.allowOnly({u"step"_s, u"send"_s, u"body"_s, u"without"_s, u"positions"_s,
            u"coupons"_s, u"set"_s, u"replace"_s, u"credentials"_s, u"answer"_s, u"asksHolder"_s,
            u"if"_s, u"checks"_s});
        Step step;
        step.name = field.at(u"step"_s).text();
        step.body = textOr(field, u"body"_s, {});
        step.sample = textOr(field, u"send"_s, {});
        if (step.sample.isEmpty() == step.body.isEmpty())
            failAt(field, u"send | body"_s);
        if (!step.sample.isEmpty() && !m_samples.exists(step.sample + u".xml"))
            failAt(field.at(u"send"_s), u"protocol/samples/"_s);
        readFilling(field, step);
        step.hasWrongCredentials = is(field, u"credentials"_s, u"wrong"_s);
        step.expectsFault = is(field, u"answer"_s, u"fault"_s);
        step.asksHolder = flagOf(field, u"asksHolder"_s);
        step.onlyIf = readCondition(field);
        if (const auto checks = field.find(u"checks"_s))
            for (const JsonField &item : checks->items())
                step.checks.append(check(item));
        return step;
    }

    static void readFilling(const JsonField &field, Step &step)
    {
        step.without = textsOf(field, u"without"_s);
        step.coupons = textsOf(field, u"coupons"_s);
        step.values = pairsOf(field, u"set"_s);
        step.replacements = pairsOf(field, u"replace"_s);
        if (const auto positions = field.find(u"positions"_s))
            for (const JsonField &item : positions->items()) {
                item.allowOnly({u"article"_s, u"quantity"_s, u"number"_s});
                const auto number = item.find(u"number"_s);
                step.positions.append({item.at(u"article"_s).integer(),
                    item.at(u"quantity"_s).text(), number ? number->integer() : 0});
            }
    }

    static bool is(const JsonField &parent, const QString &name, const QString &only)
    {
        const auto field = parent.find(name);
        if (field && field->text() != only)
            failAt(*field, only);
        return field.has_value();
    }

    [[nodiscard]] Check check(const JsonField &field) const
    {
        field.allowOnly(comparisonMembers + QStringList{u"rule"_s, u"if"_s, u"must"_s});
        Check check;
        check.rule = field.at(u"rule"_s).text();
        if (!m_acceptance.rule(check.rule))
            failAt(field.at(u"rule"_s), rulesFile);
        check.comparison = readComparison(field);
        check.onlyIf = readCondition(field);
        check.isNeeded = flagOf(field, u"must"_s);
        return check;
    }

    static FindingCase findingCase(const JsonField &field)
    {
        field.allowOnly({u"case"_s, u"text"_s, u"when"_s});
        FindingCase one{field.at(u"case"_s).text(), readSpoken(field.at(u"text"_s)), {}};
        if (const auto when = field.find(u"when"_s))
            for (const JsonField &item : when->items()) {
                item.allowOnly(comparisonMembers);
                one.when.append(readComparison(item));
            }
        return one;
    }

    static Finding finding(const JsonField &field)
    {
        field.allowOnly({u"finding"_s, u"about"_s, u"cases"_s, u"otherwise"_s});
        Finding finding{field.at(u"finding"_s).text(), readSpoken(field.at(u"about"_s)), {},
            findingCase(field.at(u"otherwise"_s))};
        for (const JsonField &item : field.at(u"cases"_s).items())
            finding.cases.append(findingCase(item));
        return finding;
    }

    const Acceptance &m_acceptance;
    QDir m_samples;
};

QList<Rule> readRules(const JsonField &whole)
{
    whole.allowOnly({u"rules"_s});
    QList<Rule> rules;
    for (const JsonField &item : whole.at(u"rules"_s).items()) {
        item.allowOnly({u"id"_s, u"section"_s, u"text"_s});
        rules.append({item.at(u"id"_s).text(), item.at(u"section"_s).text(),
            readSpoken(item.at(u"text"_s))});
    }
    return rules;
}

/// Reads one file; what is wrong in it is told with its name.
template <typename Reader> void readFile(const QString &fileName, Reader reader)
{
    const QJsonValue value = parsed(fileName);
    try {
        reader(JsonField(value));
    } catch (const StorageError &error) {
        failOn(fileName, error.tr().ui());
    }
}

} // namespace

QString builtInProtocol()
{
    return u":/korvel/protocol"_s;
}

Acceptance readAcceptance(const QString &protocolFolder)
{
    const QDir folder(protocolFolder + u"/acceptance");
    Acceptance acceptance;
    readFile(folder.filePath(rulesFile),
        [&](const JsonField &whole) { acceptance.rules = readRules(whole); });
    const FlowReader reader(acceptance, QDir(protocolFolder + u"/samples"));
    QSet<QString> ids;
    for (const QString &name : folder.entryList({u"*.json"_s}, QDir::Files, QDir::Name)) {
        if (name == rulesFile)
            continue;
        readFile(folder.filePath(name), [&](const JsonField &whole) {
            acceptance.flows.append(reader.flow(whole));
            if (ids.contains(acceptance.flows.last().id))
                failAt(whole.at(u"flow"_s), u"a name of its own"_s);
        });
        ids.insert(acceptance.flows.last().id);
    }
    return acceptance;
}

} // namespace till::accept
