#pragma once

#include "host/queue/verdict.h"

#include <QString>

#include <cstdio>

namespace till {

/// How far a delivery has come, on one line of a terminal that is written anew each time. Debian
/// packages no library for this.
class ProgressLine
{
public:
    /// @param stream not owned; must outlive this. What is no terminal gets no line.
    /// @param total  messages that are to be sent.
    ProgressLine(std::FILE *stream, int total);
    /// Clears the line.
    ~ProgressLine();
    Q_DISABLE_COPY_MOVE(ProgressLine)

    void show(const DeliveryReport &soFar);

    /// The line: a bar, how many of how many, and how many of them were not delivered.
    [[nodiscard]] static QString text(const DeliveryReport &soFar, int total);

private:
    std::FILE *m_stream;
    bool m_isTerminal;
    int m_total;
};

} // namespace till
