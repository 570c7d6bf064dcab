// The document in the transcript, member by member.

#include "tests/support/hostfixture.h"
#include "till/transcript/documentobject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QDateTime noon(QDate(2026, 3, 1), QTime(12, 0));

QSharedPointer<DocumentImpactDetail> makeDetail(EDiscountType::type type, const QVariant &rate)
{
    const auto detail = QSharedPointer<DocumentImpactDetail>::create();
    detail->setPosition(1);
    detail->setDiscountType(type);
    detail->setDiscountRate(rate);
    detail->setDiscountSum(10.0);
    detail->setDiscountName(u"Акция"_s);
    detail->setMinPriceIgnored(true);
    detail->setDateTime(noon);
    return detail;
}

class DocumentObjectTest : public HostFixture, public testing::Test
{
public:
    DocumentObjectTest() { givenCurrentDocument(EDocumentType::Sale, u"17"_s); }

    till::Json object() const { return till::documentObject(*document()); }
    std::string member(const char *name) const { return object().at(name).dump(); }
    void givenEffects(const std::function<void(LoyaltyEffects &)> &change)
    {
        LoyaltyEffects effects = document()->getEffects();
        change(effects);
        document()->setEffects(effects);
    }
};

TEST_F(DocumentObjectTest, AnEmptySale)
{
    EXPECT_EQ(object().dump(),
        R"({"type":1,"number":"17","state":"open","sum":0.0,"sumDiscounted":0.0,"refersTo":"",)"
        R"("card":null,"positions":[],"coupons":[],"discountImpacts":[],"bonusImpacts":[],)"
        R"("bonusRecords":[],"pluginData":{},"payments":[],"messagesToCashier":[],)"
        R"("messagesToClient":[],"chequeText":"",)"
        R"("points":{"available":0.0,"chosen":0.0,"earned":0.0}})");
}

TEST_F(DocumentObjectTest, AReturnThatWasClosedOrCancelled)
{
    givenCurrentDocument(EDocumentType::ReturnOfSale, u"18"_s)->setReferencedNumber(u"17"_s);
    document()->setState(EDocumentState::Closed);
    EXPECT_EQ(member("type"), "25");
    EXPECT_EQ(member("refersTo"), "\"17\"");
    EXPECT_EQ(member("state"), "\"closed\"");
    document()->setState(EDocumentState::Cancelled);
    EXPECT_EQ(member("state"), "\"cancelled\"");
}

TEST_F(DocumentObjectTest, ACardWithEverything)
{
    const auto card = givenCard();
    card->setBonusBalance(u"120.50"_s);
    card->setPointsForSpend(30.0);
    card->setPointsForEarn(5);
    card->setOperationId(u"T-1"_s);
    card->setOperationInfo(QVariantMap{{u"TransactionDate"_s, QDate(2026, 3, 1)}});
    card->getCard()->getCardGroup()->setName(u"Золотая"_s);
    const auto client = QSharedPointer<Client>::create();
    client->setName(u"Иван"_s);
    client->setEmail(u"i@example.org"_s);
    client->setOption(ClientOptions::ChequeByEmail);
    client->setOption(ClientOptions::ElectronicCheque);
    card->getCard()->setClient(client);
    EXPECT_EQ(member("card"),
        R"({"number":"2900000000017","bonusBalance":120.5,"pointsForSpend":30.0,)"
        R"("pointsForEarn":5.0,"operationId":"T-1","operationInfo":{"TransactionDate":"2026-03-01"},)"
        R"("group":{"name":"Золотая","cardMode":23},)"
        R"("client":{"name":"Иван","email":"i@example.org","options":[1,2]}})");
}

TEST_F(DocumentObjectTest, ACardOfWhichNothingIsKnownYet)
{
    givenCard();
    EXPECT_EQ(member("card"),
        R"({"number":"2900000000017","bonusBalance":null,"pointsForSpend":0.0,)"
        R"("pointsForEarn":null,"operationId":"","operationInfo":{},)"
        R"("group":{"name":"","cardMode":23},"client":null})");
}

TEST_F(DocumentObjectTest, PositionsAndSums)
{
    const auto position = givenPosition(u"1001"_s, 45.9, 2.0);
    position->setName(u"Хлеб"_s);
    position->setSumb(90.0);
    position->setMinRetailPrice(40.0);
    position->setExtendedOptions(u"a,b"_s);
    position->setUniteAvailableProp(false);
    EXPECT_EQ(member("positions"),
        R"([{"number":1,"code":"1001","name":"Хлеб","price":45.9,"quantity":2.0,"sum":91.8,)"
        R"("sumDiscounted":90.0,"minRetailPrice":40.0,"extendedOptions":"a,b",)"
        R"("uniteAvailable":false}])");
    EXPECT_EQ(member("sum"), "91.8");
    EXPECT_EQ(member("sumDiscounted"), "90.0");
}

TEST_F(DocumentObjectTest, CouponsPaymentsPluginDataAndTexts)
{
    givenCoupon(u"990"_s)->setDisplayedNumber(u"№ 990"_s);
    document()->setPayments({{u"cash"_s, 10.5}});
    document()->setStoredValue(u"KorvelLoyaltyOnline"_s, u"chequeData"_s,
        QVariantMap{{u"PaidByBonus"_s, 0.0}, {u"Total"_s, u"1.50"_s}});
    document()->setChequeText(u"a##b"_s);
    EXPECT_EQ(member("coupons"), R"([{"number":"990","displayedNumber":"№ 990"}])");
    EXPECT_EQ(member("payments"), R"([{"kind":"cash","amount":10.5}])");
    EXPECT_EQ(member("pluginData"),
        R"({"KorvelLoyaltyOnline":{"chequeData":{"PaidByBonus":0.0,"Total":"1.50"}}})");
    EXPECT_EQ(member("chequeText"), "\"a##b\"");
}

TEST_F(DocumentObjectTest, DiscountImpacts)
{
    givenEffects([](LoyaltyEffects &effects) {
        effects.discountImpacts.append(QSharedPointer<DiscountImpact>::create(
            makeDetail(EDiscountType::Percentage, u"10.5"_s)));
    });
    EXPECT_EQ(member("discountImpacts"),
        R"([{"position":1,"source":2,"object":1,"mode":2,"type":1,"rate":10.5,"sum":10.0,)"
        R"("name":"Акция","minPriceIgnored":true,"dateTime":"2026-03-01T12:00:00"}])");
}

TEST_F(DocumentObjectTest, BonusImpactsHaveCardIndexAndDetailsBesides)
{
    givenEffects([](LoyaltyEffects &effects) {
        for (const QVariant &index : {QVariant(1), QVariant()}) {
            const auto detail = makeDetail(EDiscountType::Points, 10.0);
            detail->setCardIndex(index);
            effects.bonusImpacts.append(QSharedPointer<BonusImpact>::create(detail));
        }
        effects.bonusImpacts.first()->addDetailForPosition(1, 10.0);
    });
    const till::Json impact = object()["bonusImpacts"][0];
    EXPECT_EQ(impact["cardIndex"].dump(), "1.0");
    EXPECT_EQ(impact["details"].dump(), R"([{"position":1,"sum":10.0}])");
    EXPECT_EQ(impact["type"], 5);
    EXPECT_EQ(impact.size(), 12U);
    EXPECT_TRUE(object()["bonusImpacts"][1]["cardIndex"].is_null());
    EXPECT_EQ(object()["bonusImpacts"][1]["details"].dump(), "[]");
}

TEST_F(DocumentObjectTest, BonusRecords)
{
    givenEffects([](LoyaltyEffects &effects) {
        DocumentBonusRecord record;
        record.setCardNumber(u"29"_s);
        record.setAmount(7.5);
        record.setCampaignCode(3);
        record.setCampaignName(u"Бонус"_s);
        effects.bonusRecords.append(record);
        record.setPosition(u"1"_s);
        record.setGivenForPosition(true);
        record.setDateTime(noon);
        effects.bonusRecords.append(record);
    });
    EXPECT_EQ(member("bonusRecords"),
        R"([{"cardNumber":"29","position":null,"amount":7.5,"code":3,"name":"Бонус",)"
        R"("flag":false,"dateTime":null},)"
        R"({"cardNumber":"29","position":"1","amount":7.5,"code":3,"name":"Бонус",)"
        R"("flag":true,"dateTime":"2026-03-01T12:00:00"}])");
}

TEST_F(DocumentObjectTest, MessagesAndPoints)
{
    givenEffects([](LoyaltyEffects &effects) {
        effects.messagesToCashier = QStringList{u"a"_s};
        effects.messagesToClient = QStringList{u"b"_s, u""_s};
        effects.pointsAvailable = 1.0;
        effects.pointsChosen = 2.0;
        effects.pointsEarned = 3.0;
    });
    EXPECT_EQ(member("messagesToCashier"), R"(["a"])");
    EXPECT_EQ(member("messagesToClient"), R"(["b",""])");
    EXPECT_EQ(member("points"), R"({"available":1.0,"chosen":2.0,"earned":3.0})");
}

} // namespace
