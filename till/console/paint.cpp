#include "till/console/paint.h"

#include <QtGlobal>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace till {

namespace {

// Select Graphic Rendition codes of ECMA-48.
QString codeOf(Paint::Colour colour)
{
    switch (colour) {
    case Paint::Colour::Bold:
        return u"1"_s;
    case Paint::Colour::Faint:
        return u"2"_s;
    case Paint::Colour::Red:
        return u"31"_s;
    case Paint::Colour::Green:
        return u"32"_s;
    case Paint::Colour::Yellow:
        return u"33"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

Paint Paint::forStream(std::FILE *stream)
{
    return Paint(isatty(fileno(stream)) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR"));
}

QString Paint::operator()(Colour colour, const QString &text) const
{
    return m_coloured ? u"\033[%1m%2\033[0m"_s.arg(codeOf(colour), text) : text;
}

} // namespace till
