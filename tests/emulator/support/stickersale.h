#pragma once

#include "tests/emulator/support/desktest.h"

namespace emulator {

/// The position of that number as a till would keep it: with the answer's attributes and no others.
inline SaleRequest carrying(SaleRequest sale, const ChequeFigures &answer)
{
    for (RequestPosition &position : sale.positions) {
        for (const AnsweredPosition &answered : answer.positions) {
            if (answered.number == position.number)
                position.attributes = answered.attributes;
        }
    }
    return sale;
}

/// A desk whose card has 10 stickers, tea for 3 and butter for 4, no points to be earned.
class StickerDeskTest : public DeskTest
{
protected:
    StickerDeskTest()
    {
        using namespace Qt::Literals::StringLiterals;
        data.cards[0].openingStickers = 10;
        data.earning = {};
        data.stickerOffers
            = {{u"tea"_s, 3, amount("60.00"), {}}, {u"butter"_s, 4, amount("90.00"), 1}};
        sale = firstSoft(u"17"_s,
            {{"tea", "189.00", "2.000"}, {"butter", "219.90", "2.000"},
                {"bread", "45.90", "1.000"}});
    }

    /// The next calculation, after the cashier has said yes to all that was offered.
    SaleRequest accepting(const ChequeFigures &offered)
    {
        return carrying(nextSoft(sale, offered, Amount()), offered);
    }

    /// Both offers accepted: 10 stickers for 210.00.
    ChequeFigures givenExchange() { return whenAccepted(accepting(whenAccepted(sale))); }

    SaleRequest registrationOf(const ChequeFigures &last)
    {
        return carrying(fiscal(sale, last, Amount()), last);
    }

    ChequeFigures givenRegistration() { return whenAccepted(registrationOf(givenExchange())); }

    /// The stickers go elsewhere: another till of the same card sells tea.
    void givenStickersSpentElsewhere(const char *units)
    {
        using namespace Qt::Literals::StringLiterals;
        SaleRequest other = firstSoft(u"90"_s, {{"tea", "189.00", units}});
        other.till.pos = u"2"_s;
        const ChequeFigures offered = whenAccepted(other);
        const ChequeFigures agreed
            = whenAccepted(carrying(nextSoft(other, offered, Amount()), offered));
        whenAccepted(carrying(fiscal(other, agreed, Amount()), agreed));
    }

    static QString attribute(const ChequeFigures &figures, std::size_t index, const char *key)
    {
        return figures.positions.at(index).attributes.value(QString::fromLatin1(key));
    }
    static QString offerIn(const ChequeFigures &figures, std::size_t index)
    {
        return attribute(figures, index, "StickersInterchange");
    }
    static QString exchangeIn(const ChequeFigures &figures, std::size_t index)
    {
        return attribute(figures, index, "StickersExchanged");
    }

    static void thenNothingIsOffered(const ChequeFigures &figures)
    {
        for (std::size_t index = 0; index < figures.positions.size(); ++index)
            EXPECT_EQ(offerIn(figures, index), QString()) << "position " << index + 1;
    }

    void thenStickersAre(int stickers, const char *card = testCard)
    {
        EXPECT_EQ(
            desk().books().ledger.balance(QString::fromLatin1(card), Account::Stickers).toString(),
            Amount::ofUnits(stickers).toString());
    }

    SaleRequest sale;
};

} // namespace emulator
