// A Qt plug-in of another kind.

#include <QObject>
#include <QtPlugin>

class OtherInterface : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "SomethingElse")
};

#include "otherinterface.moc"
