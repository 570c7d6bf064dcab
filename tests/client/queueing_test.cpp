#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class QueueingTest : public ClientTest
{
protected:
    QueueDouble::Entry whenQueued()
    {
        QDomDocument request;
        request.appendChild(request.createElement(u"Outer"_s))
            .appendChild(request.createElement(u"Привет"_s));
        client().sendRequestOffline(request);
        return queue().entries.value(0);
    }
};

} // namespace

TEST_F(QueueingTest, QueuesOneMessageUnderThePluginsName)
{
    EXPECT_EQ(whenQueued().queue, u"korvelloyaltyonline"_s);
    EXPECT_EQ(queue().entries.size(), 1);
    EXPECT_TRUE(exchanges().isEmpty());
}

TEST_F(QueueingTest, TheMessageIsAddressHeadersAndBodyAndNothingElse)
{
    givenSetting(u"url"_s, u"http://service.example/loyalty"_s);
    givenSetting(u"user"_s, u"till"_s);
    const auto message = whenQueued().message;
    EXPECT_EQ(message.keys(), QStringList({u"body"_s, u"headers"_s, u"url"_s}));
    EXPECT_EQ(message.value(u"url"_s).toString(), u"http://service.example/loyalty"_s);
    EXPECT_EQ(message.value(u"url"_s).typeId(), QMetaType::QString);
    EXPECT_EQ(message.value(u"body"_s).toString(), u"<Outer>\n <Привет/>\n</Outer>\n"_s);
}

TEST_F(QueueingTest, TheHeadersAreThoseOfAnOnlineRequestAsTexts)
{
    givenSetting(u"user"_s, u"till"_s);
    const QVariant headers = whenQueued().message.value(u"headers"_s);
    const Values expected = {{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s},
        {u"Authorization"_s, u"Basic dGlsbDo="_s}};
    EXPECT_EQ(headers.typeId(), QMetaType::QVariantMap);
    EXPECT_EQ(headers.toMap(), expected);
}

TEST_F(QueueingTest, TheRemarkIsEmptyButNotNull)
{
    const QString remark = whenQueued().remark;
    EXPECT_TRUE(remark.isEmpty());
    EXPECT_FALSE(remark.isNull());
}
