// Amounts in what the till itself tells the cashier are written as the cashier's locale does.

#include "tests/till/support/tillfixture.h"
#include "till/core/registration.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

class LocaleAmountsTest : public TillFixture
{
public:
    LocaleAmountsTest() { QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia)); }
    ~LocaleAmountsTest() override { QLocale::setDefault(QLocale::c()); }

    static QStringList read(const QList<tr::Tr> &notices)
    {
        QStringList texts;
        for (const tr::Tr &notice : notices)
            texts.append(notice.ui());
        return texts;
    }
    static QString reasonOf(const std::function<void()> &operation)
    {
        try {
            operation();
        } catch (const till::CannotDo &error) {
            return error.text();
        }
        return {};
    }
};

TEST_F(LocaleAmountsTest, OfAShift)
{
    givenClosedSale();
    EXPECT_EQ(read(till->closeShift().notices).mid(0, 3),
        (QStringList{u"Продажи: 1, сумма 45,90"_s, u"Возвраты: 0, сумма 0,00"_s,
            u"Баллы: начислено 0,00, списано 0,00"_s}));
}

TEST_F(LocaleAmountsTest, OfAPaymentWithPoints)
{
    givenCalculatedSale({u"1002"_s}, 10.0);
    loyalty->setAvailablePoints(30.0);
    EXPECT_EQ(read(till->payWithPoints(30.01).notices),
        QStringList{u"Нельзя оплатить баллами 30,01: доступно баллов 30,00, сумма чека 90,00"_s});
}

TEST_F(LocaleAmountsTest, OfAPaymentWithMoney)
{
    givenSaleOf({u"1002"_s});
    EXPECT_TRUE(reasonOf([this] {
        till->pay(till::PaymentKind::Card, 100.01);
    }).contains(u"картой можно оплатить не больше 100,00"));
    till->pay(till::PaymentKind::Card, 60.0);
    EXPECT_TRUE(reasonOf([this] { till->close(); }).contains(u"осталось 40,00"));
}

TEST_F(LocaleAmountsTest, AndTheMomentOfAChequeThatIsNotConfirmed)
{
    givenSaleOf({u"1002"_s});
    const auto sale = till->document();
    sale->setClosed(QDateTime({2026, 11, 5}, {9, 30}));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_TRUE(till::describe({sale, std::nullopt})
                    .ui()
                    .contains(u"от 05/11/2026 09:30: сумма 100.00, баллы: начислено 0.00"));
}

} // namespace
