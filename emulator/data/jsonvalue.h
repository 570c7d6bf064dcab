#pragma once

#include "emulator/amounts/amount.h"

#include <QString>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace emulator {

/// A data file that cannot be used; `what()` is one line for its author.
class DataError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A value of a JSON document that knows where it stands, so that every complaint names the
/// JSON pointer and what was expected there. Does not own the document.
class JsonValue
{
public:
    explicit JsonValue(const nlohmann::json &value, std::string pointer = {});

    /// Throws DataError: "/cards/0/status: expected a whole number, got "two"".
    [[noreturn]] void expected(const std::string &what) const;

    /// The value must be an object with no other members than these.
    void allowOnly(std::initializer_list<const char *> names) const;

    bool has(const char *name) const;
    JsonValue member(const char *name) const; ///< expected to be there
    std::optional<JsonValue> find(const char *name) const;

    bool isNull() const { return m_value.is_null(); }

    void forEachItem(const std::function<void(const JsonValue &)> &visit) const;
    void forEachMember(const std::function<void(const QString &, const JsonValue &)> &visit) const;

    QString text() const; ///< without characters that XML cannot carry
    QString textWithContent() const; ///< not empty
    int integer() const;
    int integerOfAtLeast(int least) const;
    bool boolean() const;
    Amount amount() const; ///< zero or more, at most two decimals
    Amount amountAboveZero() const;
    Percent percent() const; ///< 0 to 100, at most two decimals

private:
    qint64 hundredths(double greatest, const char *what) const;

    const nlohmann::json &m_value;
    std::string m_pointer;
};

} // namespace emulator
