// Any bytes as a saved document: it is read or refused with a reason; one that is read is kept as
// it was read, and a till can take it up, show it and ask for its calculation.

#include "fuzz/measure.h"
#include "fuzz/support/wellformed.h"

#include "common/names.h"
#include "host/config/config.h"
#include "host/framework/session.h"
#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"
#include "plugin/korvelloyaltyonline.h"
#include "till/transcript/documentobject.h"

#include <QDomDocument>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fileName = u"document.json"_s;

QSharedPointer<AbstractDocument> read(const QByteArray &input)
{
    try {
        return documentjson::read(input, fileName);
    } catch (const StorageError &) {
        return {};
    }
}

void requireKept(AbstractDocument &document)
{
    const QByteArray kept = documentjson::write(document);
    const auto restored = documentjson::read(kept, fileName);
    fuzz::require(documentjson::write(*restored) == kept, "a document is kept as it was read");
}

/// What a till does with the document that was left open.
void takeUp(const QSharedPointer<AbstractDocument> &document)
{
    Singleton<Session>::instance()->setCurrentDocument(document);
    KorvelLoyaltyOnline plugin;
    plugin.restoreLoyaltySystem();
    (void)till::documentObject(*document).dump();
    if (document->getCardRecord(ECardMode::OnlineLoyalty)) {
        const korvelLoyaltyOnline::Interface client;
        const QDomDocument request
            = client.formSaleChequeRequest(document, korvel::chequetype::fiscal, {});
        fuzz::require(fuzz::isWellFormed(request.toByteArray(1)), "every request is XML");
    }
    document->takeNextPosnum();
    document->refresh();
    Singleton<Session>::instance()->setCurrentDocument({});
}

bool useDocument(const QByteArray &input)
{
    const auto document = read(input);
    if (!document)
        return false;
    requireKept(*document);
    takeUp(document);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, useDocument);
}
