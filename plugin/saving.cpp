#include "plugin/saving.h"

#include "common/host/services.h"

void saveDocument(const QSharedPointer<AbstractDocument> &document)
{
    if (document)
        MockFactory<SaveToFileLogic>::create()->save(document, QString());
}
