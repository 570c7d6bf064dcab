#include "till/check/waitline.h"

#include "host/text/plaintext.h"

#include <unistd.h>

namespace till::check {

namespace {

constexpr auto clearedLine = "\r\x1b[K";

} // namespace

WaitLine::WaitLine(std::FILE *stream, const tr::Tr &text)
    : m_stream(stream)
    , m_isTerminal(isatty(fileno(stream)) != 0)
{
    if (!m_isTerminal)
        return;
    static_cast<void>(std::fputs(plaintext::line(text.ui()).toUtf8().constData(), m_stream));
    static_cast<void>(std::fflush(m_stream));
}

WaitLine::~WaitLine()
{
    if (!m_isTerminal)
        return;
    static_cast<void>(std::fputs(clearedLine, m_stream));
    static_cast<void>(std::fflush(m_stream));
}

} // namespace till::check
