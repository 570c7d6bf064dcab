// A plug-in that cannot be initialised.

#include "host/framework/basicplugin.h"

#include <QObject>

class FailingInit : public QObject, public BasicPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "KorvelLoyaltyOnline")
    Q_INTERFACES(BasicPlugin)

public:
    bool init() override { return false; }
};

#include "failinginit.moc"
