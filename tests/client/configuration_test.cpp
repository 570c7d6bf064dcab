#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Notes which keys were read.
class RecordingConfig : public Config
{
public:
    using Config::Config;
    [[nodiscard]] QString getString(const QString &key, const QString &value) const override
    {
        return note(u"string", key), Config::getString(key, value);
    }
    [[nodiscard]] int getInt(const QString &key, int value) const override
    {
        return note(u"int", key), Config::getInt(key, value);
    }
    [[nodiscard]] bool getBool(const QString &key, bool value) const override
    {
        return note(u"bool", key), Config::getBool(key, value);
    }
    [[nodiscard]] double getDouble(const QString &key, double value) const override
    {
        return note(u"double", key), Config::getDouble(key, value);
    }
    [[nodiscard]] QStringList getStringList(
        const QString &key, const QStringList &value) const override
    {
        return note(u"strings", key), Config::getStringList(key, value);
    }
    [[nodiscard]] QList<int> getIntList(const QString &key, const QList<int> &value) const override
    {
        return note(u"ints", key), Config::getIntList(key, value);
    }
    mutable QStringList reads;

private:
    // A value that one reader takes with the help of another is one read.
    void note(QStringView kind, const QString &key) const
    {
        const QString name = key.section(u':', 1);
        if (reads.isEmpty() || reads.last().section(u' ', 1) != name)
            reads.append(kind.toString() + u' ' + name);
    }
};

class ConfigurationTest : public ClientTest
{
protected:
    /// Which of the statuses 0 to 10 are forbidden; the customer is told of those marked "!".
    QStringList forbiddenStatuses()
    {
        QStringList forbidden;
        for (int status = 0; status <= 10; ++status) {
            const QString answer = u"<a><CardStatus>%1</CardStatus></a>"_s.arg(status);
            if (const auto refusal = refusalOf([&] { client().checkCardStatus(parsed(answer)); }))
                forbidden.append(QString::number(status) + (refusal->flag() ? u"!"_s : u""_s));
        }
        return forbidden;
    }
    void whenBalanceIsAsked()
    {
        givenAnswer({});
        client().balanceRequest(makeCard(u"1"_s));
    }
    QString chequeMessageOf(const QString &text)
    {
        Values result;
        client().fillRequestResult(
            parsed(u"<a><ChequeMessage>%1</ChequeMessage></a>"_s.arg(text)), result);
        return result.value(korvel::result::chequeMessage).toString();
    }
};

} // namespace

TEST_F(ConfigurationTest, SettingsAreReadOnceInTheirOrder)
{
    const auto config = QSharedPointer<RecordingConfig>::create();
    Singleton<Config>::set(config);
    client();
    const QStringList expected = {u"string url"_s, u"int timeout"_s, u"int timeoutReturn"_s,
        u"string user"_s, u"string password"_s, u"string organization"_s, u"string businessUnit"_s,
        u"string pos"_s, u"string orgName"_s, u"bool sendAdditionalBarcodeMarkdown"_s,
        u"ints errorsList"_s, u"string couponMessageDelimeter"_s, u"int indexForMinRetailPrice"_s,
        u"strings forbiddenCardStatusesForCustomer"_s, u"strings forbiddenCardStatuses"_s,
        u"bool registerErrorsInActivityJournal"_s, u"double minRetailPriceForMarkdownPositions"_s};
    EXPECT_EQ(config->reads, expected);
}

TEST_F(ConfigurationTest, NothingIsReadAgainForARequest)
{
    const auto config = QSharedPointer<RecordingConfig>::create();
    Singleton<Config>::set(config);
    client();
    config->reads.clear();
    givenCheque();
    givenPosition(u"A"_s, 10);
    givenAnswer(u"<ReturnCode>0</ReturnCode>"_s);
    whenCalculated();
    EXPECT_EQ(config->reads, QStringList());
}

TEST_F(ConfigurationTest, ALaterChangeOfASettingChangesNothing)
{
    givenSetting(u"timeout"_s, u"4"_s);
    client();
    givenSetting(u"timeout"_s, u"5"_s);
    whenBalanceIsAsked();
    EXPECT_EQ(exchanges().last().timeout, 4);
}

TEST_F(ConfigurationTest, WithoutSettingsTheServiceIsTheLocalMachineAndWaitsFifteenSeconds)
{
    whenBalanceIsAsked();
    EXPECT_EQ(exchanges().last().url.toString(), u"http://127.0.0.1"_s);
    EXPECT_EQ(exchanges().last().timeout, 15);
    givenCheque();
    client().returnChequeRequest(document());
    EXPECT_EQ(exchanges().last().timeout, 15);
}

TEST_F(ConfigurationTest, TheTimeoutOfReturnsDoesNotFollowTheOther)
{
    givenSetting(u"timeout"_s, u"4"_s);
    givenCheque();
    givenAnswer({});
    client().returnChequeRequest(document());
    EXPECT_EQ(exchanges().last().timeout, 15);
}

TEST_F(ConfigurationTest, WithoutSettingsAllTextsOfARequestAreEmpty)
{
    whenBalanceIsAsked();
    const QDomElement process = request().documentElement().firstChildElement().firstChildElement();
    EXPECT_EQ(childText(process, u"orgName"_s), u""_s);
    for (const QString &name : {u"POS"_s, u"Organization"_s, u"BusinessUnit"_s})
        EXPECT_EQ(childText(payload(), name), u""_s) << name.toStdString();
}

TEST_F(ConfigurationTest, WithoutSettingsFourStatusesAreForbiddenForTheCustomer)
{
    EXPECT_EQ(forbiddenStatuses(), QStringList({u"3!"_s, u"5!"_s, u"6!"_s, u"9!"_s}));
}

TEST_F(ConfigurationTest, WithoutSettingsThereIsNoMinimumPriceForMarkdownPositions)
{
    EXPECT_EQ(client().getMinRetailPriceForMarkdownPositions(), -1.0);
}

TEST_F(ConfigurationTest, WithoutSettingsNoErrorGoesToTheJournal)
{
    EXPECT_TRUE(refusalOf([this] { client().throwError(80001, tr::Tr()); }));
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(ConfigurationTest, WithoutSettingsTwoEnDashesEndTheChequeMessage)
{
    EXPECT_EQ(chequeMessageOf(u"A-- B\u2013 C\u2014\u2014 D\u2013\u2013E"_s),
        u"A-- B\u2013 C\u2014\u2014 D"_s);
}

TEST_F(ConfigurationTest, TheDelimiterIsUnescaped)
{
    givenSetting(u"couponMessageDelimeter"_s, uR"(\u2014\u2014)"_s);
    EXPECT_EQ(chequeMessageOf(u"A\u2013\u2013B\u2014\u2014C"_s), u"A\u2013\u2013B"_s);
}

TEST_F(ConfigurationTest, AnEmptyDelimiterNeverOccurs)
{
    givenSetting(u"couponMessageDelimeter"_s, u""_s);
    EXPECT_EQ(chequeMessageOf(u"A\u2013\u2013B"_s), u"A\u2013\u2013B"_s);
}

TEST_F(ConfigurationTest, AStatusInBothListsStaysForbiddenForTheCustomer)
{
    givenSetting(u"forbiddenCardStatusesForCustomer"_s, u"3"_s);
    givenSetting(u"forbiddenCardStatuses"_s, u"3,7"_s);
    EXPECT_EQ(forbiddenStatuses(), QStringList({u"3!"_s, u"7"_s}));
}

TEST_F(ConfigurationTest, AStatusThatIsNoNumberForbidsStatusZero)
{
    givenSetting(u"forbiddenCardStatuses"_s, u"x"_s);
    EXPECT_EQ(forbiddenStatuses(), QStringList({u"0"_s, u"3!"_s, u"5!"_s, u"6!"_s, u"9!"_s}));
}

TEST_F(ConfigurationTest, AStatusForTheCustomerBeyondThirtyTwoBitsForbidsStatusZero)
{
    givenSetting(u"forbiddenCardStatusesForCustomer"_s, u"4294967299"_s);
    EXPECT_EQ(forbiddenStatuses(), QStringList({u"0!"_s}));
}

TEST_F(ConfigurationTest, AnEmptyStatusListForbidsNothing)
{
    givenSetting(u"forbiddenCardStatusesForCustomer"_s, u""_s);
    EXPECT_EQ(forbiddenStatuses(), QStringList());
}

TEST_F(ConfigurationTest, ACodeListedTwiceIsARefusal)
{
    givenSetting(u"errorsList"_s, u"80001, 80001"_s);
    EXPECT_EQ(outcomeOf([this] { client().throwError(80001, tr::Tr()); }), Outcome::Refusal);
}

TEST_F(ConfigurationTest, AnUnreadableUrlFailsOnlyWhenItIsUsed)
{
    givenSetting(u"url"_s, u"http://["_s);
    whenBalanceIsAsked();
    EXPECT_FALSE(exchanges().last().url.isValid());
}
