#include "till/script/expectation.h"

#include "host/documents/money.h"
#include "till/core/cannotdo.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString usage = u"expect PATH OP VALUE"_s;

// Moved: a copy is made by recursion, which ends the process where the text is nested very deep.
Json valueOf(const QString &text)
{
    Json parsed = Json::parse(toJson(text), nullptr, false);
    if (parsed.is_discarded())
        return Json(toJson(text));
    return parsed;
}

bool isEqual(const Json &actual, const Json &wanted);

bool areEqualLists(const Json &actual, const Json &wanted)
{
    return std::equal(actual.begin(), actual.end(), wanted.begin(), wanted.end(), isEqual);
}

bool areEqualObjects(const Json &actual, const Json &wanted)
{
    return actual.size() == wanted.size()
        && std::all_of(wanted.items().begin(), wanted.items().end(), [&actual](const auto &member) {
               return actual.contains(member.key())
                   && isEqual(actual.at(member.key()), member.value());
           });
}

bool isEqual(const Json &actual, const Json &wanted)
{
    if (actual.is_number() && wanted.is_number())
        return money::equal(actual.get<double>(), wanted.get<double>());
    if (actual.is_array() && wanted.is_array())
        return areEqualLists(actual, wanted);
    if (actual.is_object() && wanted.is_object())
        return areEqualObjects(actual, wanted);
    return actual == wanted;
}

// A script writes texts without JSON's quotes, so the text of the script counts for them.
bool isEqualTo(const Json &actual, const Json &value, const QString &text)
{
    return actual.is_string() ? actual.get_ref<const std::string &>() == toJson(text)
                              : isEqual(actual, value);
}

bool isLess(const Json &left, const Json &right)
{
    return left.is_number() && right.is_number()
        && money::counts(right.get<double>() - left.get<double>());
}

bool hasPart(const Json &actual, const QString &text)
{
    return actual.is_string()
        && QString::fromStdString(actual.get_ref<const std::string &>()).contains(text);
}

bool contains(const Json &actual, const Json &value, const QString &text)
{
    if (actual.is_object())
        return actual.contains(toJson(text));
    if (!actual.is_array())
        return hasPart(actual, text);
    return std::any_of(actual.begin(), actual.end(), [&](const Json &element) {
        return isEqualTo(element, value, text) || hasPart(element, text);
    });
}

} // namespace

Expectation::Expectation(const QStringList &words)
    : m_path(parsePath(words.value(0)))
    , m_operator(parseOperator(words.value(1)))
    , m_text(words.value(2))
    , m_value(valueOf(m_text))
    , m_claim(words.join(u' '))
{
    constexpr int wordsWithoutValue = 2;
    const bool alone = m_operator == Operator::Exists || m_operator == Operator::Absent;
    const qsizetype wanted = alone ? wordsWithoutValue : wordsWithoutValue + 1;
    if (words.size() < wanted)
        throw CannotDo(tr::Tr(u"scriptMissing"_s, u"не хватает %1"_s).arg(u"VALUE"_s),
            tr::Tr(u"scriptUsage"_s, u"напишите: %1"_s).arg(usage));
    if (words.size() > wanted)
        throw CannotDo(
            tr::Tr(u"scriptTooManyWords"_s, u"лишнее слово «%1»"_s).arg(words.at(wanted)),
            {u"scriptQuoteValue"_s, u"возьмите VALUE из нескольких слов в кавычки"_s});
}

QList<Expectation::Step> Expectation::parsePath(const QString &path)
{
    static const QRegularExpression whole(u"^[^.\\[\\]]+(\\.[^.\\[\\]]+|\\[[0-9]{1,9}\\])*$"_s);
    static const QRegularExpression step(u"\\[([0-9]+)\\]|([^.\\[\\]]+)"_s);
    if (!whole.match(path).hasMatch())
        throw CannotDo(tr::Tr(u"scriptNoPath"_s, u"«%1» — не путь"_s).arg(path),
            {u"scriptNoPathRemedy"_s, u"напишите путь вида document.positions[0].sumDiscounted"_s});
    QList<Step> steps;
    auto matches = step.globalMatch(path);
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (match.hasCaptured(2))
            steps.append(match.captured(2));
        else
            steps.append(static_cast<size_t>(match.captured(1).toULongLong()));
    }
    return steps;
}

Expectation::Operator Expectation::parseOperator(const QString &name)
{
    static const QMap<QString, Operator> operators{{u"=="_s, Operator::Equal},
        {u"!="_s, Operator::NotEqual}, {u"<"_s, Operator::Less}, {u">"_s, Operator::Greater},
        {u"contains"_s, Operator::Contains}, {u"exists"_s, Operator::Exists},
        {u"absent"_s, Operator::Absent}};
    const auto found = operators.constFind(name);
    if (found == operators.cend())
        throw CannotDo(tr::Tr(u"scriptNoOperator"_s, u"«%1» — не оператор"_s).arg(name),
            {u"scriptNoOperatorRemedy"_s,
                u"используйте ==, !=, <, >, contains, exists или absent"_s});
    return *found;
}

const Json *Expectation::find(const Json &object) const
{
    const Json *found = &object;
    for (const Step &step : m_path) {
        if (const auto *name = std::get_if<QString>(&step)) {
            if (!found->is_object() || !found->contains(toJson(*name)))
                return nullptr;
            found = &found->at(toJson(*name));
        } else {
            const size_t index = std::get<size_t>(step);
            if (!found->is_array() || index >= found->size())
                return nullptr;
            found = &found->at(index);
        }
    }
    return found;
}

bool Expectation::holds(const Json &actual) const
{
    switch (m_operator) {
    case Operator::Equal:
        return isEqualTo(actual, m_value, m_text);
    case Operator::NotEqual:
        return !isEqualTo(actual, m_value, m_text);
    case Operator::Less:
        return isLess(actual, m_value);
    case Operator::Greater:
        return isLess(m_value, actual);
    case Operator::Contains:
        return contains(actual, m_value, m_text);
    case Operator::Exists:
        return !actual.is_null();
    case Operator::Absent:
        return actual.is_null();
    }
    Q_UNREACHABLE();
}

std::optional<QString> Expectation::failure(const Json &object) const
{
    const Json *actual = find(object);
    if (actual ? holds(*actual) : m_operator == Operator::Absent)
        return std::nullopt;
    const tr::Tr failure = actual
        ? tr::Tr(u"scriptExpectedOther"_s, u"ожидалось %1, а получено %2"_s)
              .arg(m_claim)
              .arg(QString::fromStdString(actual->dump()))
        : tr::Tr(u"scriptExpectedMissing"_s, u"ожидалось %1, а такого значения нет"_s).arg(m_claim);
    return failure.ui();
}

} // namespace till
