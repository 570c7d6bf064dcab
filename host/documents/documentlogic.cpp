#include "host/documents/documentlogic.h"

#include "host/framework/session.h"

template class MockFactory<DocumentLogic>;

DocumentLogic::~DocumentLogic() = default;

QList<QObject *> DocumentLogic::getObjects(const QSharedPointer<AbstractDocument> &document) const
{
    const auto described
        = document ? document : Singleton<Session>::instance()->getCurrentDocument();
    if (!described)
        return {};
    QList<QObject *> objects{described.data()};
    const auto card = described->getCardRecord(ECardMode::OnlineLoyalty);
    if (card && card->getCard()->getClient())
        objects.append(card->getCard()->getClient().data());
    return objects;
}
