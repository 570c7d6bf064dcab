// Answers by chance, read by the client and the obvious way: the same maps.

#include "client/answer/decimal.h"
#include "tests/client/chance.h"
#include "tests/client/clientfixture.h"
#include "tests/client/literalreader.h"
#include "tests/client/randomanswer.h"
#include "tests/client/valuetext.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int corpusSize = 2000;

class AnswerCorpusTest : public ClientTest
{
protected:
    const QString m_delimiter = u"\u2013\u2013"_s; ///< the client's without a setting
    std::mt19937 m_engine;
};

/// As the client parses, and with namespaces, which gives elements other names.
QDomDocument parsedAnswer(const QString &xml, bool withNamespaces)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(xml, withNamespaces)) << xml.toStdString();
    return document;
}

} // namespace

TEST_F(AnswerCorpusTest, EachIsReadAsTheRulesSay)
{
    for (int number = 0; number < corpusSize && !HasFailure(); ++number) {
        const QString xml = randomAnswer(m_engine);
        SCOPED_TRACE(xml.toStdString());
        for (const bool withNamespaces : {false, true}) {
            const QDomDocument answer = parsedAnswer(xml, withNamespaces);
            Values result;
            client().fillRequestResult(answer, result);
            EXPECT_EQ(valueText(result), valueText(literallyRead(answer, m_delimiter)));
            EXPECT_EQ(valueText(client().createCouponsToPrint(answer)),
                valueText(literallyReadCoupons(answer, m_delimiter)));
        }
    }
}

TEST_F(AnswerCorpusTest, AttributesOfEachElementAreReadAsTheRulesSay)
{
    for (int number = 0; number < corpusSize && !HasFailure(); ++number) {
        const QString xml = randomAnswer(m_engine);
        SCOPED_TRACE(xml.toStdString());
        const QDomDocument answer = parsedAnswer(xml, false);
        EXPECT_EQ(valueText(client().createExtendedAttributes(answer)),
            valueText(literallyReadAttributes(answer)));
        const QDomNodeList elements = answer.elementsByTagName(u"Deep"_s);
        for (int i = 0; i < elements.size(); ++i) {
            const QDomElement element = elements.at(i).toElement();
            EXPECT_EQ(valueText(client().createExtendedAttributes(element)),
                valueText(literallyReadAttributes(element)));
        }
    }
}

TEST_F(AnswerCorpusTest, TreesThatWereMadeByHandAreReadAsTheRulesSay)
{
    QDomDocument answer = parsedAnswer(u"<e><Item><Summ/><PositionNumber/></Item></e>"_s, false);
    const QDomElement item = answer.documentElement().firstChildElement();
    // A parser makes neither: a text that is null, elements below what is no element.
    item.lastChild().appendChild(answer.createTextNode({}));
    QDomEntityReference reference = answer.createEntityReference(u"r"_s);
    QDomElement discount = answer.createElement(u"Discount"_s);
    discount.appendChild(answer.createTextNode(u"7"_s));
    reference.appendChild(discount);
    answer.documentElement().appendChild(reference);
    Values result;
    client().fillRequestResult(answer, result);
    EXPECT_EQ(valueText(result), valueText(literallyRead(answer, m_delimiter)));
    EXPECT_EQ(result.value(u"Discount"_s), QVariant(7.0));
}

TEST_F(AnswerCorpusTest, NumbersAreThoseOfTheTextToTheLastBit)
{
    Chance chance(m_engine);
    const QList<QString> pieces = {u"0"_s, u"1"_s, u"7"_s, u"9"_s, u"25"_s, u"004"_s, u"99999"_s,
        u"."_s, u"."_s, u"-"_s, u"+"_s, u" "_s, u"e"_s, u","_s, u"nan"_s, u"inf"_s, u"\u0663"_s};
    constexpr int numbers = 50'000;
    for (int number = 0; number < numbers; ++number) {
        QString text;
        for (int left = chance.below(9); left > 0; --left)
            text += chance.from(pieces);
        EXPECT_EQ(valueText(korvelLoyaltyOnline::decimal(text)), valueText(text.toDouble()))
            << text.toStdString();
    }
}

TEST_F(AnswerCorpusTest, LongNumbersAreThoseOfTheTextToTheLastBit)
{
    Chance chance(m_engine);
    constexpr int numbers = 50'000;
    for (int number = 0; number < numbers; ++number) {
        QString text;
        for (int left = 12 + chance.below(8); left > 0; --left)
            text += QString::number(chance.below(10));
        text.insert(chance.below(static_cast<int>(text.size()) + 1), u'.');
        EXPECT_EQ(valueText(korvelLoyaltyOnline::decimal(text)), valueText(text.toDouble()))
            << text.toStdString();
    }
}

TEST_F(AnswerCorpusTest, EndlessNumbersAreThoseOfTheTextToTheLastBit)
{
    Chance chance(m_engine);
    const QList<QString> ends
        = {u""_s, u"1"_s, u"."_s, u".25"_s, u"-"_s, u"+"_s, u" "_s, u"\n"_s, u"e2"_s, u"e-1100"_s,
            u"e-1400"_s, u","_s, u"x"_s, u"nan"_s, u"\u0663"_s, u"\u2212"_s, u"\u00A0"_s, u"?"_s};
    const QList<QString> middles = {u"0"_s, u"9"_s, u"12"_s, u" "_s, u"0."_s, u"\u0667"_s};
    constexpr int numbers = 2'000;
    for (int number = 0; number < numbers; ++number) {
        const QString text = chance.from(ends)
            + chance.from(middles).repeated(970 + chance.below(60)) + chance.from(ends);
        EXPECT_EQ(valueText(korvelLoyaltyOnline::decimal(text)), valueText(text.toDouble()))
            << text.left(3).toStdString() << "..." << text.right(8).toStdString();
    }
}

TEST_F(AnswerCorpusTest, AmountsAreThoseOfTheTextToTheLastBit)
{
    for (int kopecks = 0; kopecks < 100'000; ++kopecks) {
        const QString text = QString::number(kopecks / 100.0, 'f', 2);
        EXPECT_EQ(korvelLoyaltyOnline::decimal(text), text.toDouble()) << text.toStdString();
    }
}
