// Any bytes as the file of settings: it is read or refused with a reason, every value can be asked
// for as everything, and plug-in and client that were made of it compose requests that are XML.

#include "fuzz/measure.h"
#include "fuzz/support/memoryfolder.h"
#include "fuzz/support/wellformed.h"

#include "common/names.h"
#include "host/config/config.h"
#include "host/documents/abstractdocument.h"
#include "host/framework/session.h"
#include "plugin/korvelloyaltyonline.h"

#include <QDomDocument>
#include <QFile>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QString written(const QByteArray &input)
{
    static const QString fileName = fuzz::emptyFolder() + u"/till.ini"_s;
    QFile file(fileName);
    fuzz::require(file.open(QIODevice::WriteOnly) && file.write(input) == input.size(),
        "the settings can be written");
    return fileName;
}

void askForEverything(const Config &config)
{
    const QStringList sections = config.getSections(u"*"_s);
    for (const QString &section : sections)
        for (const QString &key : config.getKeys(section)) {
            const QString name = section + u':' + key;
            fuzz::require(config.contains(name), "a key that is listed is there");
            (void)config.getString(name, {});
            (void)config.getInt(name, 0);
            (void)config.getBool(name, false);
            (void)config.getDouble(name, 0.0);
            (void)config.getStringList(name, {});
            (void)config.getIntList(name, {});
            (void)config.getPath(name, {});
            (void)config.placeOf(name);
        }
    (void)config.warnings();
}

QSharedPointer<GoodsItem> makePosition(int posnum)
{
    auto position = QSharedPointer<GoodsItem>::create();
    position->setPosnum(posnum);
    position->setCode(u"1001"_s);
    position->setPrice(10.0);
    position->setBquant(2.0);
    position->setExtendedOptions(u"MARKDOWN30"_s);
    position->recalculate();
    return position;
}

QSharedPointer<AbstractDocument> makeSale()
{
    auto sale = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, u"17"_s);
    sale->setPlace(u"1"_s, u"1"_s);
    const auto group = QSharedPointer<CardGroup>::create();
    group->setCardMode(ECardMode::OnlineLoyalty);
    const auto card = QSharedPointer<Card>::create();
    card->setNumber(u"2900000000017"_s);
    card->setCardGroup(group);
    sale->addCardRecord(QSharedPointer<DocumentCardRecord>::create(card));
    sale->addPosition(makePosition(1));
    sale->addPosition(makePosition(2));
    return sale;
}

bool hasControls(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
        [](QChar character) { return character.category() == QChar::Other_Control; });
}

void composeRequest()
{
    const auto sale = makeSale();
    Singleton<Session>::instance()->setCurrentDocument(sale);
    const KorvelLoyaltyOnline plugin;
    const korvelLoyaltyOnline::Interface client;
    const QDomDocument request = client.formSaleChequeRequest(sale, korvel::chequetype::soft, {});
    fuzz::require(fuzz::isWellFormed(request.toByteArray(1)), "every request is XML");
    const auto headers = client.formXmlRequestHeaders();
    for (const QString &header : headers)
        fuzz::require(!hasControls(header), "a header is one line");
    Singleton<Session>::instance()->setCurrentDocument({});
}

bool useSettings(const QByteArray &input)
{
    Singleton<Config>::reset();
    Config *config = Singleton<Config>::instance();
    try {
        config->load(written(input));
    } catch (const ConfigError &) {
        return false;
    }
    askForEverything(*config);
    composeRequest();
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, useSettings);
}
