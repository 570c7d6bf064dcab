#include "host/logging/library/onelinelayout.h"

#include "host/logging/oneline.h"

namespace logging {

QString OneLineLayout::format(const Log4Qt::LoggingEvent &event)
{
    QString line = Log4Qt::PatternLayout::format(event);
    line.chop(endOfLine().size());
    return onOneLine(line) + endOfLine();
}

} // namespace logging
