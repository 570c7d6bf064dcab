#include "common/exceptions.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::Literals::StringLiterals;

namespace {

const tr::Tr message(u"id"_s, u"нет связи"_s);

TEST(Exceptions, AHandlerOfLostConnectionsReceivesInternalErrors)
{
    try {
        throw KorvelInternalErrorException(message);
    } catch (const KorvelNoConnectionException &error) {
        EXPECT_EQ(error.tr(), message);
        return;
    }
    FAIL() << "not caught";
}

TEST(Exceptions, EachIsDerivedFromTheOneBefore)
{
    EXPECT_TRUE((std::is_base_of_v<std::runtime_error, BasicException>));
    EXPECT_TRUE((std::is_base_of_v<BasicException, KorvelException>));
    EXPECT_TRUE((std::is_base_of_v<KorvelException, KorvelNoConnectionException>));
    EXPECT_TRUE((std::is_base_of_v<KorvelNoConnectionException, KorvelInternalErrorException>));
}

TEST(Exceptions, ARefusalIsNoLostConnection)
{
    EXPECT_FALSE((std::is_base_of_v<KorvelNoConnectionException, KorvelException>));
    EXPECT_FALSE(KorvelException(message).flag());
}

TEST(Exceptions, TheFlagTravelsWithTheException)
{
    KorvelException refusal(message);
    refusal.setFlag(true);
    try {
        throw refusal;
    } catch (const BasicException &error) {
        EXPECT_TRUE(error.flag());
        EXPECT_EQ(error.tr().ru(), u"нет связи"_s);
    }
}

} // namespace
