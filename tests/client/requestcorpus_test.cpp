// Cheques by chance, composed by the client and the obvious way: the same trees.

#include "host/framework/session.h"
#include "tests/client/clientfixture.h"
#include "tests/client/literalcomposer.h"
#include "tests/client/randomcheque.h"

#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

namespace {

class RequestCorpusTest : public testing::TestWithParam<unsigned>, protected HostFixture
{
protected:
    RequestCorpusTest()
        : m_engine(GetParam())
        , m_settings(randomSettings(m_engine))
    {
        const QDateTime now = m_now;
        MockFactory<CurrentTime>::setCreator(
            [now] { return QSharedPointer<ClockDouble>::create(now); });
        given(u"orgName"_s, m_settings.orgName);
        given(u"organization"_s, m_settings.organization);
        given(u"pos"_s, m_settings.pos);
        given(u"businessUnit"_s, m_settings.businessUnit);
        given(u"indexForMinRetailPrice"_s, QString::number(m_settings.minRetailPriceIndex));
        given(u"minRetailPriceForMarkdownPositions"_s,
            QString::number(m_settings.minRetailPriceForMarkdown));
        given(u"sendAdditionalBarcodeMarkdown"_s, m_settings.sendsOptions ? u"true"_s : u"false"_s);
        for (const RequestSettings::Section &section : m_settings.sections)
            for (const auto &[key, value] : section.settings)
                givenSetting(
                    u"KorvelLoyaltyOnline.ExtendedAttributes.%1:%2"_s.arg(section.name, key),
                    value);
    }
    static void given(const QString &name, const QString &value)
    {
        Singleton<Config>::instance()->set(korvel::group % u':' % name, value);
    }

    const QDateTime m_now = QDateTime({2024, 3, 5}, {17, 4, 9});
    std::mt19937 m_engine;
    RequestSettings m_settings;
};

constexpr unsigned configurations = 20;
constexpr int chequesOfEach = 100;

} // namespace

TEST_P(RequestCorpusTest, EachIsComposedAsTheRulesSay)
{
    const korvelLoyaltyOnline::Interface client;
    for (int number = 0; number < chequesOfEach && !HasFailure(); ++number) {
        const RandomCheque cheque = randomCheque(m_engine, makeCard(u"2900000000017"_s));
        Singleton<Session>::instance()->setCurrentDocument(cheque.document);
        const QDomDocument composed
            = client.formSaleChequeRequest(cheque.document, cheque.type, cheque.confirmation);
        const QDomDocument expected = literallyComposed(cheque, m_settings, m_now);
        // Bytes say more than trees where texts are mixed, and as much everywhere else.
        EXPECT_EQ(composed.toString(), expected.toString()) << "cheque " << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Configurations, RequestCorpusTest, testing::Range(0U, configurations));
