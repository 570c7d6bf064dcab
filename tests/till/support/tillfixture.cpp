#include "tests/till/support/tillfixture.h"

#include "host/framework/activitynotifier.h"
#include "host/framework/session.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Article makeArticle(const QString &code, const QString &name, double price, bool weighed = false)
{
    Article article;
    article.code = code;
    article.barcodes = QStringList{u"46"_s + code};
    article.name = name;
    article.price = price;
    article.unit = TmcUnit(weighed ? u"кг"_s : u"шт"_s, weighed);
    article.minRetailPrice = weighed ? 500.0 : 0.0;
    article.extendedOptions = weighed ? u"fresh"_s : QString();
    article.tmc = QSharedPointer<Tmc>::create();
    return article;
}

} // namespace

TillFixture::TillFixture()
    : catalogue(
        {makeArticle(u"1001"_s, u"Хлеб"_s, 45.90), makeArticle(u"1002"_s, u"Молоко"_s, 100.0),
            makeArticle(u"1003"_s, u"Сыр"_s, 600.0, true)},
        {{u"29"_s}, {u"99"_s}}, {u"7"_s, u"3"_s, 17})
{
    open();
}

TillFixture::~TillFixture()
{
    kill();
}

void TillFixture::open()
{
    loyalty = std::make_unique<FakeLoyalty>();
    Singleton<ActivityNotifier>::instance()->subscribe(loyalty.get());
    exchanges = std::make_unique<till::Exchanges>();
    store = std::make_unique<DocumentStore>();
    till = std::make_unique<till::Till>(*loyalty, catalogue, *store, *exchanges);
}

void TillFixture::kill()
{
    Singleton<Session>::instance()->setCurrentDocument({});
    till.reset();
    store.reset();
    exchanges.reset();
    loyalty.reset();
}

void TillFixture::givenRestart()
{
    kill();
    open();
    till->start();
}

void TillFixture::givenSaleOf(const QStringList &codes)
{
    for (const QString &code : codes)
        till->addPosition({code, 1.0, {}, {}, {}});
    loyalty->calls.clear();
}

void TillFixture::givenIdentifiedCard(const QString &number)
{
    till->presentCard(number, ECardNumberType::Keyed);
    loyalty->calls.clear();
}

void TillFixture::givenCalculatedSale(const QStringList &codes, double discount)
{
    givenSaleOf(codes);
    loyalty->behaviour[u"request"_s] = [this, discount] {
        loyalty->giveDiscount(1, discount);
        return true;
    };
    till->calculate();
    loyalty->calls.clear();
}

QString TillFixture::givenClosedSale()
{
    givenIdentifiedCard();
    givenSaleOf({u"1001"_s});
    const QString number = till->document()->getNumber();
    till->document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(u"T-1"_s);
    till->document()->setStoredValue(u"FakeLoyalty"_s, u"chequeData"_s, 5);
    till->close();
    loyalty->calls.clear();
    return number;
}

QStringList TillFixture::takeCalls()
{
    return std::exchange(loyalty->calls, {});
}

QString TillFixture::whyNot(const std::function<void()> &operation)
{
    try {
        operation();
        return {};
    } catch (const till::CannotDo &error) {
        return error.text();
    }
}
