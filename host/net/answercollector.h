#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>

/// Takes an answer's head and body as they arrive and watches what libcurl does not: whether the
/// head reached its blank line, and that neither part grows beyond its bound.
class AnswerCollector
{
public:
    /// @param maxBodyBytes of the body as it was before it was cut in chunks.
    explicit AnswerCollector(qint64 maxBodyBytes);

    /// One line of a head, line break included; false when heads have grown too large.
    [[nodiscard]] bool takeHeadLine(QByteArrayView line);
    /// A piece of the body; false when the body has grown too large.
    [[nodiscard]] bool takeBody(QByteArrayView bytes);

    /// Whether the last head that began has ended.
    [[nodiscard]] bool isHeadComplete() const { return m_headComplete; }
    /// What the last head says about the server's clock, UTC; invalid where it says nothing.
    [[nodiscard]] const QDateTime &date() const { return m_date; }
    [[nodiscard]] bool isTooLarge() const { return m_tooLarge; }
    [[nodiscard]] const QByteArray &body() const { return m_body; }

private:
    qint64 m_maxBodyBytes;
    qint64 m_headBytes = 0;
    bool m_headComplete = false;
    bool m_tooLarge = false;
    QDateTime m_date;
    QByteArray m_body;
};
