// What the queue's commands write.

#include "till/queue/output.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till;

namespace {

TEST(OutputTest, AComplaintWorksNoTerminal)
{
    testing::internal::CaptureStderr();
    complain(u"red \u001b[31m"_s);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "korvel-till: red \xef\xbf\xbd[31m\n");
}

} // namespace
