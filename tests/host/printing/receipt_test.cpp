// The receipt as the customer reads it.

#include "host/documents/discountlogic.h"
#include "host/printing/receipt.h"
#include "tests/host/printing/printfixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class ReceiptTest : public testing::Test, public PrintFixture
{
protected:
    ReceiptTest() { givenDocument(EDocumentType::Sale, u"17"_s); }

    void givenDocument(EDocumentType type, const QString &number)
    {
        givenCurrentDocument(type, number);
        document()->setPlace(u"1"_s, u"2"_s);
        document()->setOpened(QDateTime(QDate(2024, 11, 21), QTime(12, 30)));
    }
    QSharedPointer<GoodsItem> givenGoods(
        const QString &name, double price, double quantity, const QString &unit = u"шт"_s)
    {
        const auto position = givenPosition(u"1001"_s, price, quantity);
        position->setName(name);
        position->setTmcUnit(TmcUnit(unit, true));
        return position;
    }
    void givenRegisteredCard(const QVariant &balance)
    {
        const auto card = givenCard();
        card->setOperationId(u"T1"_s);
        card->setBonusBalance(balance);
    }
    template <typename Impact> static QSharedPointer<Impact> makeImpact(int position, double sum)
    {
        const auto detail = QSharedPointer<DocumentImpactDetail>::create();
        detail->setPosition(position);
        detail->setDiscountSum(sum);
        return QSharedPointer<Impact>::create(detail);
    }
    void givenDiscount(int position, double sum)
    {
        DiscountLogic().applyDiscounts(document(), {makeImpact<DiscountImpact>(position, sum)});
    }
    void givenPoints(int position, double sum)
    {
        DiscountLogic().applyPoints(document(), {makeImpact<BonusImpact>(position, sum)});
    }
    [[nodiscard]] QString whenReceiptPrinted()
    {
        whenPrinted(receipt::templateName, receipt::data(*document(), booking));
        return screen().last();
    }
    void thenReceiptHas(const QString &text)
    {
        EXPECT_THAT(whenReceiptPrinted().toStdString(), testing::HasSubstr(text.toStdString()));
    }
    void thenReceiptHasNot(const QString &text)
    {
        EXPECT_FALSE(whenReceiptPrinted().contains(text)) << qPrintable(text);
    }

    receipt::Booking booking = receipt::Booking::Done;
};

TEST_F(ReceiptTest, CashThatIsGivenBackIsPrinted)
{
    givenPosition(u"1001"_s, 45.90);
    document()->setPayments({{u"cash"_s, 50}});
    EXPECT_TRUE(whenReceiptPrinted().contains(u"Наличными                          50.00\n"
                                              u"Сдача                               4.10\n"));
    document()->setPayments({{u"cash"_s, 40}});
    EXPECT_FALSE(whenReceiptPrinted().contains(u"Сдача"));
}

TEST_F(ReceiptTest, WholeReceiptOfASale)
{
    givenGoods(u"Хлеб"_s, 45.9, 2);
    givenGoods(u"Сыр"_s, 649, 0.742, u"кг"_s);
    givenDiscount(1, 9.18);
    givenPoints(2, 20);
    givenRegisteredCard(u"120.5"_s);
    const auto client = QSharedPointer<Client>::create();
    client->setName(u"Иван Иванов"_s);
    document()->getCardRecord(ECardMode::OnlineLoyalty)->getCard()->setClient(client);
    LoyaltyEffects effects;
    effects.pointsEarned = 5.44;
    effects.messagesToClient = {u"Приходите ещё"_s};
    document()->setEffects(effects);
    document()->setPayments({{u"cash"_s, 500}, {u"card"_s, 44.18}});
    EXPECT_EQ(whenReceiptPrinted(),
        u"              КАССОВЫЙ ЧЕК\n"
        u"Магазин 1                        Касса 2\n"
        u"Чек № 17                21.11.2024 12:30\n"
        u"----------------------------------------\n"
        u"Хлеб\n"
        u"  2 шт × 45.90                     91.80\n"
        u"  Скидка                           -9.18\n"
        u"Сыр\n"
        u"  0.742 кг × 649.00               481.56\n"
        u"  Оплачено баллами                -20.00\n"
        u"----------------------------------------\n"
        u"Сумма                             573.36\n"
        u"Скидка                             -9.18\n"
        u"Оплачено баллами                  -20.00\n"
        u"ИТОГО                             544.18\n"
        u"Наличными                         500.00\n"
        u"Картой                             44.18\n"
        u"----------------------------------------\n"
        u"Карта                      2900000000017\n"
        u"Покупатель                   Иван Иванов\n"
        u"Списано баллов                     20.00\n"
        u"Начислено баллов                    5.44\n"
        u"Баланс баллов                     120.50\n"
        u"----------------------------------------\n"
        u"Приходите ещё\n"_s);
}

TEST_F(ReceiptTest, NoLineIsWiderThanThePaper)
{
    givenGoods(
        u"Набор подарочный «Семь чудес света» в жестяной коробке с лентой"_s, 1234567.89, 12);
    givenRegisteredCard(1.0);
    document()->setChequeText(u"длинное слово "_s.repeated(20));
    const QStringList lines = whenReceiptPrinted().split(u'\n');
    for (const QString &line : lines)
        EXPECT_LE(line.size(), receipt::paperWidth) << qPrintable(line);
}

TEST_F(ReceiptTest, PlainSaleHasNeitherDiscountNorCard)
{
    givenGoods(u"Хлеб"_s, 45.9, 1);
    for (const QString &text : {u"Скидка"_s, u"Сумма"_s, u"баллами"_s, u"Карта"_s, u"Баллы"_s})
        thenReceiptHasNot(text);
    thenReceiptHas(u"ИТОГО                              45.90\n"_s);
    EXPECT_TRUE(screen().last().endsWith(u"45.90\n"_s));
    EXPECT_FALSE(screen().last().endsWith(u"\n\n"_s));
}

TEST_F(ReceiptTest, QuantityHasNoIdleZeros)
{
    const auto position = givenGoods(u"Сыр"_s, 10, 1);
    struct Row
    {
        double quantity;
        QString printed;
    };
    for (const Row &row : {Row{1, u"  1 шт"_s}, Row{10, u"  10 шт"_s}, Row{100, u"  100 шт"_s},
             Row{0.5, u"  0.5 шт"_s}, Row{0.05, u"  0.05 шт"_s}, Row{1.2345, u"  1.234 шт"_s}}) {
        position->setBquant(row.quantity);
        thenReceiptHas(row.printed);
    }
}

TEST_F(ReceiptTest, SaleThatIsNotRegisteredSaysThatPointsComeLater)
{
    givenRegisteredCard(120.5);
    givenGoods(u"Хлеб"_s, 100, 1);
    givenPoints(1, 30);
    booking = receipt::Booking::Later;
    thenReceiptHas(u"\nСписано баллов                     30.00\nБаллы будут начислены позже\n"_s);
    thenReceiptHasNot(u"Баланс"_s);
}

TEST_F(ReceiptTest, UnknownBalanceIsNotPrinted)
{
    givenRegisteredCard({});
    thenReceiptHasNot(u"Баланс"_s);
    thenReceiptHasNot(u"позже"_s);
}

TEST_F(ReceiptTest, ReturnNamesItsSale)
{
    givenDocument(EDocumentType::ReturnOfSale, u"23"_s);
    document()->setReferencedNumber(u"17"_s);
    thenReceiptHas(u"                ВОЗВРАТ\n"_s);
    thenReceiptHas(u"К чеку № 17\n"_s);
    thenReceiptHasNot(u"Баллы"_s);
}

TEST_F(ReceiptTest, ReturnTellsWhatBecomesOfPointsButNotTheBalanceOfTheSale)
{
    givenDocument(EDocumentType::ReturnOfSale, u"23"_s);
    givenRegisteredCard(120.5);
    givenGoods(u"Хлеб"_s, 100, 1);
    givenPoints(1, 30);
    thenReceiptHas(u"\nВозвращено баллов                  30.00\nБаллы за покупку пересчитаны\n"_s);
    for (const QString &text : {u"Баланс"_s, u"Списано"_s, u"позже"_s})
        thenReceiptHasNot(text);
    booking = receipt::Booking::Later;
    thenReceiptHas(u"Баллы за покупку будут пересчитаны позже\n"_s);
}

TEST_F(ReceiptTest, ClosedDocumentShowsTheTimeOfClosing)
{
    document()->setClosed(QDateTime(QDate(2024, 11, 22), QTime(0, 5)));
    thenReceiptHas(u"22.11.2024 00:05\n"_s);
}

TEST_F(ReceiptTest, TextsOfTheLoyaltySystemArePrintedOnce)
{
    LoyaltyEffects effects;
    effects.messagesToClient = {u"one"_s, u"two"_s};
    document()->setEffects(effects);
    document()->setChequeText(u"two##three\nfour"_s);
    thenReceiptHas(u"----\none\ntwo\nthree\nfour\n"_s);
    EXPECT_EQ(screen().last().count(u"two"_s), 1);
}

TEST_F(ReceiptTest, PartOfAPositionShowsItsPartOfThePoints)
{
    const auto position = givenGoods(u"Хлеб"_s, 100, 2);
    givenPoints(1, 30);
    position->setBquant(1);
    document()->recalculate();
    thenReceiptHas(u"  Оплачено баллами                -15.00\n"_s);
    thenReceiptHas(u"ИТОГО                              85.00\n"_s);
    thenReceiptHasNot(u"Скидка"_s);
}

} // namespace
