#pragma once

#include "log4qt/layout.h"

namespace Log4Qt {

class LOG4QT_EXPORT PatternLayout : public Layout
{
    Q_OBJECT

public:
    PatternLayout(QObject *parent = nullptr);
    PatternLayout(const QString &pattern, QObject *parent = nullptr);
    ~PatternLayout() override;

    QString conversionPattern() const;
    void setConversionPattern(const QString &pattern);
    void activateOptions() override;
    QString format(const LoggingEvent &event) override;
};

} // namespace Log4Qt
