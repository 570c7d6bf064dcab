#pragma once

#include "tests/till/accept/wrongservice.h"

#include <QByteArray>

#include <functional>

/// Ways in which a service can be wrong. Each makes a change that begins anew.
namespace ways {

using Ask = WrongService::Ask;
using Change = WrongService::Change;
using Condition = std::function<bool(const QByteArray &request)>;
using Edit = std::function<QByteArray(const QByteArray &message)>;
using OnRepeat = std::function<HttpMessage(
    const QByteArray &request, const HttpMessage &earlier, const Ask &ask)>;

/// An answer to a cheque that holds nothing but this return code and a message.
[[nodiscard]] QByteArray refusal(const QByteArray &code);
/// A SOAP fault.
[[nodiscard]] QByteArray fault();

/// Answers of such requests are edited.
[[nodiscard]] std::function<Change()> answers(const Condition &condition, const Edit &edit);
/// Such requests are understood otherwise than they are meant.
[[nodiscard]] std::function<Change()> requests(const Condition &condition, const Edit &edit);
/// Such requests are refused, and nothing is done.
[[nodiscard]] std::function<Change()> refusing(const Condition &condition, const QByteArray &code);
/// Such requests get another HTTP status.
[[nodiscard]] std::function<Change()> status(const Condition &condition, int status);
[[nodiscard]] Edit setting(const QByteArray &name, const QByteArray &value, int index = 0);
[[nodiscard]] Edit adding(const QByteArray &name, double amount, int index = 0);
[[nodiscard]] Edit both(const Edit &one, const Edit &other);
[[nodiscard]] Edit replacingCode(const QByteArray &from, const QByteArray &to);
/// The same, but only with the count-th of such requests.
[[nodiscard]] std::function<Change()> onlyThe(
    int count, const Condition &condition, const std::function<Change()> &change);
/// Does that with the first cheque of such requests that comes again.
[[nodiscard]] std::function<Change()> repeats(
    const Condition &condition, bool withSamePositions, const OnRepeat &act);
[[nodiscard]] QByteArray underAnotherNumber(const QByteArray &request);
[[nodiscard]] HttpMessage refusedRepeat(const QByteArray &, const HttpMessage &, const Ask &);
/// Answers as before, and books once more.
[[nodiscard]] HttpMessage bookedTwice(
    const QByteArray &request, const HttpMessage &earlier, const Ask &ask);
[[nodiscard]] HttpMessage takenAsAnother(
    const QByteArray &request, const HttpMessage &, const Ask &ask);

} // namespace ways
