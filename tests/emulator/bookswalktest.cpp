#include "tests/emulator/support/stickersale.h"

#include <random>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// Sales, returns in parts, rollbacks and repeats in any order; the desk adds the books up after
/// each.
class BooksWalk : public StickerDeskTest, public testing::WithParamInterface<unsigned>
{
protected:
    BooksWalk()
        : random(GetParam())
    {
        data.earning.percent = Percent::ofHundredths(333);
        data.earning.statusPercent = Percent::ofHundredths(77);
        data.earning.cheque = {{Amount(), amount("1.01")}};
        data.articleDiscounts = {{u"bread"_s, Percent::ofHundredths(777)}};
    }

    int upTo(int greatest) { return std::uniform_int_distribution(0, greatest)(random); }

    QString nextNumber() { return QString::number(++m_number); }

    /// A sale with awkward figures, now and then paid with points or stickers.
    void whenSold()
    {
        SaleRequest request
            = firstSoft(nextNumber(), {{"tea", "189.01", "3.000"}, {"bread", "0.07", "7.000"}});
        const ChequeFigures last = whenAccepted(request);
        if (upTo(1) == 0)
            request = carrying(request, whenAccepted(carrying(nextSoft(request, last, {}), last)));
        const ChequeFigures quoted = whenAccepted(nextSoft(request, last, Amount()));
        const Amount points
            = Amount::ofHundredths(std::min<qint64>(upTo(10'000), quoted.available.hundredths()));
        request = fiscal(carrying(request, quoted), quoted, points);
        const ChequeFigures sold = whenAccepted(request);
        transactions.append(sold.transaction);
        sales.append(request.number);
        if (upTo(2) == 0)
            whenRepeated(request);
    }

    void whenReturned()
    {
        const QString sold = sales.at(upTo(static_cast<int>(sales.size()) - 1));
        const ChequeAnswer answer = whenAnswered(upTo(1) == 0
                ? returnOf(sold, nextNumber(), {{"tea", "189.01", "1.000"}})
                : returnOf(
                    sold, nextNumber(), {{"bread", "0.07", "0.333"}, {"bread", "0.07", "2.000"}}));
        if (answer.figures)
            transactions.append(answer.figures->transaction);
    }

    void whenRolledBack()
    {
        const QString one = transactions.at(upTo(static_cast<int>(transactions.size()) - 1));
        desk().answer(RollbackRequest{{}, sale.card, one});
        const QStringList once = booksAsText();
        desk().answer(RollbackRequest{{}, sale.card, one});
        EXPECT_EQ(booksAsText(), once) << "undoing again is the same as undoing once";
    }

    /// What of a sale has not come back yet, all at once.
    void whenTheRestComesBack(const QString &number)
    {
        const auto sold = desk().books().transactions.findSale(
            {returnOf(number, {}, {}).till, number, sale.card}, {});
        if (!sold)
            return;
        ReturnRequest rest = returnOf(number, nextNumber(), {});
        for (const SoldPosition &position : desk().books().transactions.soldPositions(sold->id)) {
            RequestPosition returned;
            returned.number = position.number;
            returned.article = position.article;
            returned.quantity = position.quantity - position.returned;
            rest.positions.push_back(returned);
        }
        whenAccepted(rest);
        for (const SoldPosition &position : desk().books().transactions.soldPositions(sold->id)) {
            EXPECT_EQ(position.sumReturned, position.sum);
            EXPECT_EQ(position.sumDiscountedReturned, position.sumDiscounted);
            EXPECT_EQ(position.earnedReturned, position.earned);
            EXPECT_EQ(position.statusReturned, position.earnedStatus);
            EXPECT_EQ(position.spentReturned, position.spent);
            EXPECT_EQ(position.stickersReturned, position.stickers);
        }
    }

    std::mt19937 random;
    QStringList transactions;
    QStringList sales;

private:
    int m_number = 100;
};

TEST_P(BooksWalk, KeepsTheBooksInOrderAndGivesBackExactlyWhatWasGiven)
{
    whenSold();
    constexpr int steps = 60;
    for (int step = 0; step < steps; ++step) {
        const int kind = upTo(3);
        if (kind == 0)
            whenSold();
        else if (kind == 3)
            whenRolledBack();
        else
            whenReturned();
    }
    for (const QString &number : sales)
        whenTheRestComesBack(number);
}

INSTANTIATE_TEST_SUITE_P(Seeds, BooksWalk, testing::Range(1u, 9u));

} // namespace
} // namespace emulator
