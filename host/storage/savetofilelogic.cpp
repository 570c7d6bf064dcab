#include "host/storage/savetofilelogic.h"

#include "host/framework/basicexception.h"
#include "host/storage/atomicfile.h"
#include "host/storage/documentfile.h"
#include "host/storage/opendocumenthold.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"

using namespace Qt::Literals::StringLiterals;

template class MockFactory<SaveToFileLogic>;

SaveToFileLogic::~SaveToFileLogic() = default;

namespace {

void saveAsOpenDocument(AbstractDocument &document)
{
    if (OpenDocumentHold::isHeld())
        return;
    const QString fileName = Singleton<StateFolder>::instance()->openDocument();
    if (document.getState() != EDocumentState::Open) {
        const auto kept = documentfile::load(fileName);
        if (!kept || !documentfile::isSame(*kept, document))
            return;
    }
    documentfile::save(document, fileName);
}

} // namespace

void SaveToFileLogic::save(
    const QSharedPointer<AbstractDocument> &document, const QString &fileName)
{
    const auto *const folder = Singleton<StateFolder>::instance();
    try {
        atomicfile::makePrivateFolder(folder->path());
        if (fileName.isEmpty())
            saveAsOpenDocument(*document);
        else
            documentfile::save(*document, folder->path() + u'/' + fileName);
    } catch (const StorageError &error) {
        throw BasicException(
            tr::Tr(u"documentNotSaved"_s, u"Не удалось сохранить документ: %1"_s).arg(error.tr()));
    }
}
