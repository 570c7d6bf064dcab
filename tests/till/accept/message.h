#pragma once

#include <QByteArray>

/// Looking into the messages of a test and changing them, as texts.
namespace message {

/// Text of the index-th element of that name; empty where there is none.
[[nodiscard]] QByteArray valueOf(const QByteArray &xml, const QByteArray &name, int index = 0);
/// The message with another text in the index-th element of that name.
[[nodiscard]] QByteArray with(
    QByteArray xml, const QByteArray &name, const QByteArray &value, int index = 0);
/// The message without the index-th element of that name, children included.
[[nodiscard]] QByteArray without(QByteArray xml, const QByteArray &name, int index = 0);

[[nodiscard]] bool isBalance(const QByteArray &request);
[[nodiscard]] bool isSoft(const QByteArray &request);
/// A registration of a sale.
[[nodiscard]] bool isFiscal(const QByteArray &request);
[[nodiscard]] bool isReturn(const QByteArray &request);
[[nodiscard]] bool isRollback(const QByteArray &request);
/// Positions of a cheque.
[[nodiscard]] qsizetype positions(const QByteArray &request);

} // namespace message
