// Everything that a document holds comes back from disk.

#include "host/storage/documentjson.h"
#include "tests/support/hostfixture.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime opened(QDate(2024, 11, 21), QTime(12, 30, 1, 5));
const QDateTime closed(QDate(2024, 11, 21), QTime(12, 34, 0));

class DocumentJsonTest : public testing::Test, public HostFixture
{
protected:
    DocumentJsonTest() { givenCurrentDocument(); }

    void whenKept()
    {
        const QByteArray file = documentjson::write(*document());
        read = documentjson::read(file, u"document.json"_s);
        EXPECT_EQ(documentjson::write(*read), file);
        EXPECT_EQ(QJsonDocument::fromJson(file).toJson(QJsonDocument::Indented), file);
    }
    [[nodiscard]] QSharedPointer<DocumentCardRecord> readCard() const
    {
        return read->getCardRecord(ECardMode::OnlineLoyalty);
    }
    static QSharedPointer<DocumentImpactDetail> makeDetail()
    {
        const auto detail = QSharedPointer<DocumentImpactDetail>::create();
        detail->setDateTime(opened);
        detail->setPosition(2);
        detail->setDiscountType(EDiscountType::Points);
        detail->setDiscountRate(10.0);
        detail->setDiscountSum(4.59);
        detail->setDiscountName(u"Скидка"_s);
        detail->setMinPriceIgnored(true);
        detail->setCardIndex(1);
        return detail;
    }

    QSharedPointer<AbstractDocument> read;
};

TEST_F(DocumentJsonTest, NewDocument)
{
    whenKept();
    EXPECT_EQ(read->getType(), EDocumentType::Sale);
    EXPECT_EQ(read->getNumber(), u"17"_s);
    EXPECT_EQ(read->getState(), EDocumentState::Open);
    EXPECT_FALSE(read->getOpened().isValid());
    EXPECT_FALSE(read->getClosed().isValid());
    EXPECT_TRUE(read->getGoods().isEmpty());
    EXPECT_TRUE(read->getCardRecords().isEmpty());
    EXPECT_EQ(read->getNextPosnum(), 1);
}

TEST_F(DocumentJsonTest, HeadOfADocument)
{
    givenCurrentDocument(EDocumentType::ReturnOfSale, u"23"_s);
    document()->setState(EDocumentState::Cancelled);
    document()->setPlace(u"12"_s, u"3"_s);
    document()->setCorrelationId(u"c-1"_s);
    document()->setOpened(opened);
    document()->setClosed(closed);
    document()->setReferencedNumber(u"17"_s);
    document()->setNextPosnum(9);
    document()->setChequeText(u"one##two"_s);
    whenKept();
    EXPECT_EQ(read->getType(), EDocumentType::ReturnOfSale);
    EXPECT_EQ(read->getState(), EDocumentState::Cancelled);
    EXPECT_EQ(read->getShop(), u"12"_s);
    EXPECT_EQ(read->getTill(), u"3"_s);
    EXPECT_EQ(read->getCorrelationId(), u"c-1"_s);
    EXPECT_EQ(read->getOpened(), opened);
    EXPECT_EQ(read->getClosed(), closed);
    EXPECT_EQ(read->getReferencedNumber(), u"17"_s);
    EXPECT_EQ(read->getNextPosnum(), 9);
    EXPECT_EQ(read->getChequeText(), u"one##two"_s);
}

TEST_F(DocumentJsonTest, ArticleOfAPosition)
{
    const auto position = givenPosition(u"1004"_s, 399);
    position->setObjectName(u"position"_s);
    position->setBarcode(u"4600000010046"_s);
    position->setName(u"Кофе"_s);
    position->setTmcUnit(TmcUnit(u"кг"_s, true));
    position->setMinRetailPrice(300);
    position->setExtendedOptions(u"a,,b"_s);
    position->setTmc(
        QSharedPointer<Tmc>::create(QList{QSharedPointer<TmcIndexPrice>::create(5, 350.0)}));
    whenKept();
    const auto kept = read->getPosition(1);
    EXPECT_EQ(kept->getCode(), u"1004"_s);
    EXPECT_EQ(kept->objectName(), u"position"_s);
    EXPECT_EQ(kept->getBarcode(), u"4600000010046"_s);
    EXPECT_EQ(kept->getName(), u"Кофе"_s);
    EXPECT_EQ(kept->getUnitName(), u"кг"_s);
    EXPECT_TRUE(kept->getTmcUnit().isFractional());
    EXPECT_DOUBLE_EQ(kept->getMinRetailPrice(), 300);
    EXPECT_EQ(kept->getExtendedOptions(), u"a,,b"_s);
    ASSERT_TRUE(kept->getTmc() && kept->getTmc()->hasIndexPrice(5));
    EXPECT_DOUBLE_EQ(kept->getTmc()->getIndexPrice(5)->getPrice(), 350);
}

TEST_F(DocumentJsonTest, SumsOfAPositionAreNotComputedAnew)
{
    const auto position = givenPosition(u"1001"_s, 45.9, 2);
    position->setSumn(1);
    position->setSumb(2);
    position->setAppliedDiscount(3);
    position->setAppliedPoints(4);
    position->setAppliedQuantity(5);
    position->setUniteAvailableProp(false);
    position->setRecalcable(true);
    whenKept();
    const auto kept = read->getPosition(1);
    EXPECT_EQ(kept->getPrice(), 45.9);
    EXPECT_EQ(kept->getBquant(), 2);
    EXPECT_EQ(kept->getSumn(), 1);
    EXPECT_EQ(kept->getSumb(), 2);
    EXPECT_EQ(kept->getAppliedDiscount(), 3);
    EXPECT_EQ(kept->getAppliedPoints(), 4);
    EXPECT_EQ(kept->getAppliedQuantity(), 5);
    EXPECT_FALSE(kept->isUniteAvailable());
    EXPECT_TRUE(kept->isRecalcable());
    EXPECT_TRUE(kept->getTmc().isNull());
}

TEST_F(DocumentJsonTest, PositionsKeepOrderAndNumbers)
{
    givenPosition(u"1001"_s, 10);
    givenPosition(u"1002"_s, 20);
    givenPosition(u"1003"_s, 30);
    document()->removePosition(2);
    whenKept();
    ASSERT_EQ(read->getGoods().size(), 2);
    EXPECT_EQ(read->getGoods().at(0)->getPosnum(), 1);
    EXPECT_EQ(read->getGoods().at(1)->getPosnum(), 3);
    EXPECT_EQ(read->takeNextPosnum(), 4);
}

TEST_F(DocumentJsonTest, CardWithGroupAndClient)
{
    const auto card = givenCard()->getCard();
    card->getCardGroup()->setName(u"Золотая"_s);
    const auto client = QSharedPointer<Client>::create();
    client->setName(u", Иван"_s);
    client->setEmail(u"ivan@example.com"_s);
    client->setOption(ClientOptions::ChequeByEmail);
    card->setClient(client);
    whenKept();
    const auto kept = readCard()->getCard();
    EXPECT_EQ(kept->getNumber(), u"2900000000017"_s);
    EXPECT_EQ(kept->getCardGroup()->getName(), u"Золотая"_s);
    EXPECT_EQ(kept->getClient()->getName(), u", Иван"_s);
    EXPECT_EQ(kept->getClient()->getEmail(), u"ivan@example.com"_s);
    EXPECT_TRUE(kept->getClient()->hasOption(ClientOptions::ChequeByEmail));
    EXPECT_FALSE(kept->getClient()->hasOption(ClientOptions::ElectronicCheque));
}

TEST_F(DocumentJsonTest, CardWithoutGroupAndClient)
{
    document()->addCardRecord(
        QSharedPointer<DocumentCardRecord>::create(QSharedPointer<Card>::create()));
    whenKept();
    const auto kept = read->getCardRecord(ECardMode::None)->getCard();
    EXPECT_TRUE(kept->getCardGroup().isNull());
    EXPECT_TRUE(kept->getClient().isNull());
}

TEST_F(DocumentJsonTest, OperationOfACard)
{
    const auto card = givenCard();
    card->setCodeInternal(4);
    card->setBonusBalance(u"120.50"_s);
    card->setPointsForSpend(33.5);
    card->setPointsForEarn(0.005);
    card->setOperationId(u"T1"_s);
    card->setOperationInfo(QVariantMap{{u"TransactionDate"_s, QDate()}});
    whenKept();
    EXPECT_EQ(readCard()->getCodeInternal(), 4);
    EXPECT_EQ(readCard()->getBonusBalance(), QVariant(u"120.50"_s));
    EXPECT_EQ(readCard()->getPointsForSpend(), 33.5);
    EXPECT_EQ(readCard()->getPointsForEarn(), QVariant(0.005));
    EXPECT_EQ(readCard()->getOperationId(), u"T1"_s);
    EXPECT_EQ(readCard()->getOperationInfo(), card->getOperationInfo());
}

TEST_F(DocumentJsonTest, CouponsAsTheyAreShown)
{
    givenCoupon(u"9901"_s)->setDisplayedNumber(u"на уценку 30% № 9901"_s);
    givenCoupon(u"9902"_s);
    whenKept();
    ASSERT_EQ(read->getCoupons().size(), 2);
    EXPECT_EQ(read->getCoupon(u"9901"_s)->getDisplayedNumber(), u"на уценку 30% № 9901"_s);
    EXPECT_EQ(read->getCoupons().last()->getNumber(), u"9902"_s);
}

TEST_F(DocumentJsonTest, ValuesOfEveryPluginAndKey)
{
    document()->setStoredValue(u"one"_s, u"a/b"_s, 1);
    document()->setStoredValue(u"one"_s, u"c"_s, 2);
    document()->setStoredValue(u"two"_s, u"c"_s, 3);
    whenKept();
    EXPECT_EQ(read->getStoredValues(), document()->getStoredValues());
}

TEST_F(DocumentJsonTest, ModifiersThatWaitForAnAction)
{
    document()->getModifiers().set(modifiers::Type::Quantity, QVariant::fromValue(Quantity(0.742)));
    document()->getModifiers().set(modifiers::Type::RepeatedScan, true);
    whenKept();
    const auto quantity = read->getModifiers().value(modifiers::Type::Quantity);
    EXPECT_EQ(quantity.value<Quantity>().value(), 0.742);
    EXPECT_EQ(read->getModifiers().value(modifiers::Type::RepeatedScan), QVariant(true));
}

TEST_F(DocumentJsonTest, Payments)
{
    document()->setPayments({{u"cash"_s, 100.5}, {u"card"_s, 20}});
    whenKept();
    ASSERT_EQ(read->getPayments().size(), 2);
    EXPECT_EQ(read->getPayments().at(0).kind, u"cash"_s);
    EXPECT_EQ(read->getPayments().at(0).amount, 100.5);
    EXPECT_EQ(read->getPayments().at(1).kind, u"card"_s);
}

TEST_F(DocumentJsonTest, ImpactsWithTheirDetails)
{
    const auto impact = QSharedPointer<BonusImpact>::create(makeDetail());
    impact->addDetailForPosition(2, 4.59);
    LoyaltyEffects effects;
    effects.discountImpacts = {QSharedPointer<DiscountImpact>::create(makeDetail())};
    effects.bonusImpacts = {impact};
    document()->setEffects(effects);
    whenKept();
    EXPECT_EQ(read->getEffects().discountImpacts.size(), 1);
    ASSERT_EQ(read->getEffects().bonusImpacts.size(), 1);
    const auto kept = read->getEffects().bonusImpacts.first();
    ASSERT_EQ(kept->getDetailsForPositions().size(), 1);
    EXPECT_EQ(kept->getDetailsForPositions().first().position, 2);
    EXPECT_EQ(kept->getDetailsForPositions().first().sum, 4.59);
    const auto detail = kept->getDetail();
    EXPECT_EQ(detail->getDateTime(), opened);
    EXPECT_EQ(detail->getPosition(), 2);
    EXPECT_EQ(detail->getDiscountType(), EDiscountType::Points);
    EXPECT_EQ(detail->getDiscountRate(), QVariant(10.0));
    EXPECT_EQ(detail->getDiscountSum(), 4.59);
    EXPECT_EQ(detail->getDiscountName(), u"Скидка"_s);
    EXPECT_TRUE(detail->isMinPriceIgnored());
    EXPECT_EQ(detail->getCardIndex(), QVariant(1));
    EXPECT_TRUE(detail->getCardRecord().isNull());
}

TEST_F(DocumentJsonTest, CodesOfAnImpactThatTheHostHasNoNameFor)
{
    const auto detail = makeDetail();
    detail->setImpactSource(static_cast<EImpactSource::source>(3));
    detail->setDiscountObject(static_cast<EDiscountObject::type>(4));
    detail->setDiscountMode(static_cast<EDiscountMode::type>(5));
    LoyaltyEffects effects;
    effects.discountImpacts = {QSharedPointer<DiscountImpact>::create(detail)};
    document()->setEffects(effects);
    whenKept();
    const auto kept = read->getEffects().discountImpacts.first()->getDetail();
    EXPECT_EQ(static_cast<int>(kept->getImpactSource()), 3);
    EXPECT_EQ(static_cast<int>(kept->getDiscountObject()), 4);
    EXPECT_EQ(static_cast<int>(kept->getDiscountMode()), 5);
}

TEST_F(DocumentJsonTest, CardOfAnImpactIsTheDocumentsOwnRecord)
{
    const auto detail = makeDetail();
    detail->setCardRecord(givenCard());
    LoyaltyEffects effects;
    effects.bonusImpacts = {QSharedPointer<BonusImpact>::create(detail)};
    document()->setEffects(effects);
    whenKept();
    EXPECT_EQ(read->getEffects().bonusImpacts.first()->getDetail()->getCardRecord(), readCard());
}

TEST_F(DocumentJsonTest, CardOfAnImpactThatIsOnNoDocumentIsKeptToo)
{
    const auto detail = makeDetail();
    detail->setCardRecord(makeCard(u"2999"_s));
    LoyaltyEffects effects;
    effects.bonusImpacts = {QSharedPointer<BonusImpact>::create(detail)};
    document()->setEffects(effects);
    whenKept();
    const auto kept = read->getEffects().bonusImpacts.first()->getDetail()->getCardRecord();
    ASSERT_FALSE(kept.isNull());
    EXPECT_EQ(kept->getNumber(), QVariant(u"2999"_s));
}

TEST_F(DocumentJsonTest, BonusRecords)
{
    DocumentBonusRecord record;
    record.setCardNumber(u"2900"_s);
    record.setPosition(u"10"_s);
    record.setAmount(4.5);
    record.setCampaignCode(1200);
    record.setCampaignName(u"Начисление"_s);
    record.setGivenForPosition(true);
    record.setDateTime(opened);
    LoyaltyEffects effects;
    effects.bonusRecords = {record, DocumentBonusRecord()};
    document()->setEffects(effects);
    whenKept();
    ASSERT_EQ(read->getEffects().bonusRecords.size(), 2);
    const DocumentBonusRecord kept = read->getEffects().bonusRecords.first();
    EXPECT_EQ(kept.getCardNumber(), u"2900"_s);
    EXPECT_EQ(kept.getPosition(), QVariant(u"10"_s));
    EXPECT_EQ(kept.getAmount(), 4.5);
    EXPECT_EQ(kept.getCampaignCode(), 1200);
    EXPECT_EQ(kept.getCampaignName(), u"Начисление"_s);
    EXPECT_TRUE(kept.isGivenForPosition());
    EXPECT_EQ(kept.getDateTime(), opened);
    EXPECT_FALSE(read->getEffects().bonusRecords.last().getPosition().isValid());
}

TEST_F(DocumentJsonTest, MessagesAndPoints)
{
    LoyaltyEffects effects;
    effects.messagesToCashier = {u"one"_s, u""_s};
    effects.messagesToClient = {u"two"_s};
    effects.pointsAvailable = 120.5;
    effects.pointsChosen = 20;
    effects.pointsEarned = 5.25;
    document()->setEffects(effects);
    whenKept();
    EXPECT_EQ(read->getEffects().messagesToCashier, effects.messagesToCashier);
    EXPECT_EQ(read->getEffects().messagesToClient, effects.messagesToClient);
    EXPECT_EQ(read->getEffects().pointsAvailable, 120.5);
    EXPECT_EQ(read->getEffects().pointsChosen, 20);
    EXPECT_EQ(read->getEffects().pointsEarned, 5.25);
}

} // namespace
