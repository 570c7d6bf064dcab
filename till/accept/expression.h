#pragma once

#include "till/accept/dialogue.h"

#include <QDomElement>
#include <QString>

#include <optional>
#include <stdexcept>

namespace till::accept {

/// What an expression comes to: a text, or nothing where an element is not there.
struct Value
{
    std::optional<QString> text;
    bool isComputed = false; ///< an amount that nobody has written, with more decimals than one

    [[nodiscard]] bool isThere() const { return text.has_value(); }
    /// Nothing where it is no number.
    [[nodiscard]] std::optional<double> number() const;
    /// As it goes into a request; what was computed with two decimals.
    [[nodiscard]] QString written() const;
};

/// A number as the protocol writes amounts: two decimals.
[[nodiscard]] Value amountValue(double amount);

/// An expression that cannot be read: an error of the flow's author.
class ExpressionError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The elements that "item" and "asked" stand for in a comparison of each.
struct Surroundings
{
    QDomElement item;
    QDomElement asked; ///< the position of the request with the item's number
};

/// Evaluates expressions over what was said so far.
///
///     sale.Summ - sale.Discount          children of the answer's payload, by their path
///     sale.request.Item.Price            of the request's
///     sale.status, sale.kind             HTTP status; name of the payload
///     sale.holder                        the code that the holder was told
///     card, coupon, user                 names of the run
///     item.Summ, asked.Price             of the element in hand
///     12.50, 'text', + - * / ( )
///     sum(path) count(path) sorted(path) listed(path) goods(step) answer(step) wished(step)
///     min(a, b) either(a, b) day(time) today(days) moment(seconds) number('name') wrong(code)
///
/// A path that leads nowhere is nothing, and so is what is computed from nothing.
/// @throws ExpressionError
[[nodiscard]] Value evaluate(
    const QString &expression, Dialogue &dialogue, const Surroundings &surroundings = {});

/// The elements of a path such as "sale.Item".
/// @throws ExpressionError
[[nodiscard]] QList<QDomElement> elementsOf(const QString &path, const Dialogue &dialogue);

} // namespace till::accept
