// The shift's sums and open ends.

#include "host/storage/storageerror.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/shift.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class ShiftTest : public TillFixture
{
public:
    QStringList whenShiftIsClosed()
    {
        QStringList texts;
        for (const tr::Tr &notice : till->closeShift().notices)
            texts.append(notice.ru());
        return texts;
    }
};

TEST_F(ShiftTest, SalesReturnsAndPointsAreSummedUp)
{
    givenCalculatedSale({u"1002"_s, u"1001"_s}, 10.0);
    loyalty->setAvailablePoints(50.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 20.0);
        return true;
    };
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        loyalty->giveBonusRecord(7.0);
        return true;
    };
    till->payWithPoints(20.0);
    till->close();
    till->openReturn();
    givenSaleOf({u"1001"_s});
    till->close();
    EXPECT_EQ(whenShiftIsClosed(),
        (QStringList{u"Продажи: 1, сумма 115.90"_s, u"Возвраты: 1, сумма 45.90"_s,
            u"Баллы: начислено 7.00, списано 20.00"_s, u"Ждут отправки: 0"_s}));
}

TEST_F(ShiftTest, TheNextShiftBeginsEmpty)
{
    givenClosedSale();
    whenShiftIsClosed();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 0, сумма 0.00"_s);
    givenClosedSale();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 1, сумма 45.90"_s);
}

TEST_F(ShiftTest, TheShiftOutlivesTheTill)
{
    givenClosedSale();
    whenShiftIsClosed();
    givenClosedSale();
    givenRestart();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 1, сумма 45.90"_s);
}

TEST_F(ShiftTest, CancelledDocumentsDoNotCount)
{
    givenSaleOf({u"1001"_s});
    till->cancel();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 0, сумма 0.00"_s);
}

TEST_F(ShiftTest, AnOpenDocumentIsAnOpenEnd)
{
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(whenShiftIsClosed().constLast(), u"Открыт документ 17"_s);
}

TEST_F(ShiftTest, ABrokenMarkIsAnErrorAndKept)
{
    QFile mark(stateFolder() + u"/shift"_s);
    ASSERT_TRUE(mark.open(QIODevice::WriteOnly));
    mark.write("nonsense");
    mark.close();
    EXPECT_THROW(till->closeShift(), StorageError);
    ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
    EXPECT_EQ(mark.readAll(), "nonsense");
}

} // namespace
