#pragma once

#include <log4qt/patternlayout.h>

namespace logging {

/// A pattern that ends with "%n" makes one line of every event, whatever its message holds.
class OneLineLayout : public Log4Qt::PatternLayout
{
public:
    using Log4Qt::PatternLayout::PatternLayout;

    QString format(const Log4Qt::LoggingEvent &event) override;
};

} // namespace logging
