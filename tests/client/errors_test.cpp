#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const tr::Tr serviceMessage(tr::undefined, u"Карта не найдена, 100%1"_s);

class ErrorsTest : public ClientTest
{
protected:
    Outcome whenChecked(const QString &content)
    {
        return outcomeOf([&] { client().checkResponse(parsed(u"<a>" + content + u"</a>")); });
    }
    Outcome whenThrown(int code)
    {
        return outcomeOf([&] { client().throwError(code, serviceMessage); });
    }
    void givenJournalIsOn() { givenSetting(u"registerErrorsInActivityJournal"_s, u"true"_s); }
};

} // namespace

TEST_F(ErrorsTest, CodesUpToZeroAreSuccessWhateverTheMessage)
{
    EXPECT_EQ(whenChecked(u"<ReturnCode>0</ReturnCode><Message>!</Message>"_s), Outcome::Returns);
    EXPECT_EQ(whenChecked(u"<ReturnCode>-5</ReturnCode>"_s), Outcome::Returns);
}

TEST_F(ErrorsTest, AnAnswerWithoutAReadableCodePassesAndIsNotRegistered)
{
    givenJournalIsOn();
    for (const QString &content : {u""_s, u"<ReturnCode/>"_s, u"<ReturnCode>x</ReturnCode>"_s})
        EXPECT_EQ(whenChecked(content), Outcome::Returns) << content.toStdString();
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(ErrorsTest, AnAlwaysShownCodeIsARefusal)
{
    EXPECT_EQ(whenChecked(u"<ReturnCode>83000</ReturnCode>"_s), Outcome::Refusal);
}

TEST_F(ErrorsTest, AnotherCodeIsAnInternalErrorUnlessItIsConfigured)
{
    EXPECT_EQ(whenChecked(u"<ReturnCode>80001</ReturnCode>"_s), Outcome::InternalError);
}

TEST_F(ErrorsTest, AConfiguredCodeIsARefusal)
{
    givenSetting(u"errorsList"_s, u"80002,80001"_s);
    EXPECT_EQ(whenChecked(u"<ReturnCode>80001</ReturnCode>"_s), Outcome::Refusal);
}

TEST_F(ErrorsTest, TheMessageIsTheServicesUnderTheUndefinedId)
{
    const auto answer = parsed(
        u"<a><ReturnCode>83000</ReturnCode><Message>Нет</Message><Message>Да</Message></a>"_s);
    const auto refusal = refusalOf([&] { client().checkResponse(answer); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->tr(), tr::Tr(tr::undefined, u"Нет"_s));
    EXPECT_FALSE(refusal->flag());
}

TEST_F(ErrorsTest, AnInternalErrorCarriesTheMessageAndNoFlag)
{
    const auto refusal = refusalOf([this] { client().throwError(80001, serviceMessage); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->tr(), serviceMessage);
    EXPECT_FALSE(refusal->flag());
}

TEST_F(ErrorsTest, CodeZeroReturns)
{
    givenJournalIsOn();
    EXPECT_EQ(whenThrown(0), Outcome::Returns);
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(ErrorsTest, ANegativeCodeIsThrownButNotRegistered)
{
    givenJournalIsOn();
    EXPECT_EQ(whenThrown(-1), Outcome::InternalError);
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(ErrorsTest, AnErrorIsRegisteredOnceBeforeItIsThrown)
{
    givenJournalIsOn();
    EXPECT_EQ(whenThrown(80001), Outcome::InternalError);
    ASSERT_EQ(journal().events.size(), 1);
    const Event event = journal().events.first();
    EXPECT_EQ(event.getCode(), 253);
    const Values expected
        = {{u"errorMessage"_s, u"Карта не найдена, 100%1"_s}, {u"errorCode"_s, 80001}};
    EXPECT_EQ(event.getArguments(), expected);
    EXPECT_EQ(event.getArguments().value(u"errorCode"_s).typeId(), QMetaType::Int);
}

TEST_F(ErrorsTest, ARefusalIsRegisteredToo)
{
    givenJournalIsOn();
    EXPECT_EQ(whenThrown(1), Outcome::InternalError);
    EXPECT_EQ(whenThrown(83000), Outcome::Refusal);
    EXPECT_EQ(journal().events.size(), 2);
}

TEST_F(ErrorsTest, NothingIsRegisteredUnlessConfigured)
{
    EXPECT_EQ(whenThrown(80001), Outcome::InternalError);
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(ErrorsTest, AFailingJournalDoesNotHideTheServicesError)
{
    givenJournalIsOn();
    journal().fails = true;
    EXPECT_EQ(whenThrown(83000), Outcome::Refusal);
    EXPECT_EQ(logged(u"WARN"_s),
        QStringList(u"The service's error 83000 could not be put into the journal"_s));
}

TEST_F(ErrorsTest, NothingIsLoggedAtErrorLevel)
{
    whenThrown(80001);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
}
