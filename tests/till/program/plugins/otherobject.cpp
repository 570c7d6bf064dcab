// The right interface id over an object that is no plug-in of the till.

#include <QObject>
#include <QtPlugin>

class OtherObject : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "KorvelLoyaltyOnline")
};

#include "otherobject.moc"
