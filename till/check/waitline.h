#pragma once

#include "host/framework/tr.h"

#include <cstdio>

namespace till::check {

/// A line on a terminal that says what is waited for, as long as this lives.
class WaitLine
{
public:
    /// @param stream not owned; must outlive this. What is no terminal gets no line.
    WaitLine(std::FILE *stream, const tr::Tr &text);
    /// Clears the line.
    ~WaitLine();
    Q_DISABLE_COPY_MOVE(WaitLine)

private:
    std::FILE *m_stream;
    bool m_isTerminal;
};

} // namespace till::check
