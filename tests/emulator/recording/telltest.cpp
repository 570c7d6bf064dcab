#include "emulator/recording/tell.h"

#include <gtest/gtest.h>

namespace emulator {
namespace {

TEST(TellTest, WritesOneLineOnStandardError)
{
    testing::internal::CaptureStderr();
    tell(QStringLiteral("article \n\"Чай\"\r\n of many lines"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "article \"Чай\" of many lines\n");
}

} // namespace
} // namespace emulator
