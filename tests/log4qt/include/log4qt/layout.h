#pragma once

#include "log4qt/log4qt.h"

#include <QObject>
#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT Layout : public QObject
{
    Q_OBJECT

public:
    Layout(QObject *parent = nullptr);
    virtual ~Layout();

    virtual QString name() const;
    virtual void setName(const QString &name);
    virtual void activateOptions();
    virtual QString format(const LoggingEvent &event) = 0;
    static QString endOfLine();
};

} // namespace Log4Qt
