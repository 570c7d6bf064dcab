#include "emulator/data/jsonvalue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace emulator {

namespace {

constexpr double hundredthsPerUnit = 100.0;
constexpr double greatestPercent = 100.0;
constexpr double greatestConfiguredAmount = 1e9;
// 0.1 has no exact double; anything nearer than this was written with two decimals.
constexpr double twoDecimalsTolerance = 1e-5;

/// One step of a JSON pointer, with "~" and "/" escaped as RFC 6901 says.
std::string pointerStep(const std::string &name)
{
    std::string step = "/";
    for (const char c : name) {
        if (c == '~')
            step += "~0";
        else if (c == '/')
            step += "~1";
        else
            step += c;
    }
    return step;
}

bool fitsIntoXml(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
        [](QChar c) { return c >= u' ' ? c < u'\ufffe' : c == u'\n' || c == u'\t'; });
}

} // namespace

JsonValue::JsonValue(const nlohmann::json &value, std::string pointer)
    : m_value(value)
    , m_pointer(std::move(pointer))
{ }

void JsonValue::expected(const std::string &what) const
{
    constexpr std::size_t shownLength = 60;
    std::string got = m_value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    if (got.size() > shownLength)
        got = m_value.is_object() ? "an object" : m_value.is_array() ? "an array" : "a long text";
    throw DataError((m_pointer.empty() ? "/" : m_pointer) + ": expected " + what + ", got " + got);
}

void JsonValue::allowOnly(std::initializer_list<const char *> names) const
{
    if (!m_value.is_object())
        expected("an object");
    for (const auto &[name, value] : m_value.items()) {
        if (std::find(names.begin(), names.end(), name) != names.end())
            continue;
        std::string known;
        for (const char *other : names)
            known += (known.empty() ? "" : ", ") + std::string(other);
        throw DataError(
            m_pointer + pointerStep(name) + ": unknown member, expected one of " + known);
    }
}

bool JsonValue::has(const char *name) const
{
    return m_value.is_object() && m_value.contains(name);
}

JsonValue JsonValue::member(const char *name) const
{
    if (!has(name))
        throw DataError(m_pointer + pointerStep(name) + ": expected, but it is missing");
    return JsonValue(m_value.at(name), m_pointer + pointerStep(name));
}

std::optional<JsonValue> JsonValue::find(const char *name) const
{
    return has(name) ? std::optional(member(name)) : std::nullopt;
}

void JsonValue::forEachItem(const std::function<void(const JsonValue &)> &visit) const
{
    if (!m_value.is_array())
        expected("an array");
    for (std::size_t index = 0; index < m_value.size(); ++index)
        visit(JsonValue(m_value.at(index), m_pointer + pointerStep(std::to_string(index))));
}

void JsonValue::forEachMember(
    const std::function<void(const QString &, const JsonValue &)> &visit) const
{
    if (!m_value.is_object())
        expected("an object");
    for (const auto &[name, value] : m_value.items())
        visit(QString::fromStdString(name), JsonValue(value, m_pointer + pointerStep(name)));
}

QString JsonValue::text() const
{
    if (!m_value.is_string())
        expected("a text");
    QString text = QString::fromStdString(m_value.get_ref<const std::string &>());
    if (!fitsIntoXml(text))
        expected("a text without control characters");
    return text;
}

QString JsonValue::textWithContent() const
{
    QString content = text();
    if (content.isEmpty())
        expected("a text that is not empty");
    return content;
}

int JsonValue::integer() const
{
    const bool fits = m_value.is_number_integer()
        && m_value.get<double>() >= std::numeric_limits<int>::min()
        && m_value.get<double>() <= std::numeric_limits<int>::max();
    if (!fits)
        expected("a whole number");
    return m_value.get<int>();
}

int JsonValue::integerOfAtLeast(int least) const
{
    const int number = integer();
    if (number < least)
        expected("a whole number of at least " + std::to_string(least));
    return number;
}

bool JsonValue::boolean() const
{
    if (!m_value.is_boolean())
        expected("true or false");
    return m_value.get<bool>();
}

qint64 JsonValue::hundredths(double greatest, const char *what) const
{
    if (!m_value.is_number())
        expected(what);
    const double scaled = m_value.get<double>() * hundredthsPerUnit;
    const bool fits = scaled >= 0 && scaled <= greatest * hundredthsPerUnit
        && std::abs(scaled - std::round(scaled)) < twoDecimalsTolerance;
    if (!fits)
        expected(what);
    return std::llround(scaled);
}

Amount JsonValue::amount() const
{
    return Amount::ofHundredths(hundredths(
        greatestConfiguredAmount, "an amount of zero or more with at most two decimals"));
}

Amount JsonValue::amountAboveZero() const
{
    const Amount above = amount();
    if (above == Amount())
        expected("an amount above zero");
    return above;
}

Percent JsonValue::percent() const
{
    return Percent::ofHundredths(
        hundredths(greatestPercent, "a percentage from 0 to 100 with at most two decimals"));
}

} // namespace emulator
