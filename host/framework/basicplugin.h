#pragma once

#include "host/export.h"
#include "host/framework/actiontrigger.h"

#include <QList>
#include <QString>
#include <QtPlugin>

/// What every plug-in of the till is: a name, an initialisation and its action triggers.
class POSHOST_EXPORT BasicPlugin
{
public:
    BasicPlugin() = default;
    virtual ~BasicPlugin();
    Q_DISABLE_COPY_MOVE(BasicPlugin)

    /// Called once after loading; false when the plug-in cannot work.
    virtual bool init() = 0;

    [[nodiscard]] QString getPluginName() const { return m_pluginName; }
    /// In the order in which they were added.
    [[nodiscard]] const QList<ActionTrigger> &getTriggers() const { return m_triggers; }

protected:
    void setPluginName(const QString &name) { m_pluginName = name; }
    void addTrigger(const ActionTrigger &trigger) { m_triggers.append(trigger); }

private:
    QString m_pluginName;
    QList<ActionTrigger> m_triggers;
};

Q_DECLARE_INTERFACE(BasicPlugin, "PosHost.BasicPlugin/1.0")
