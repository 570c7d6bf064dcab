#include "common/confirmationinfo.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using korvel::ConfirmationInfo;

TEST(ConfirmationInfo, StartsUnconfirmedWithoutACode)
{
    const ConfirmationInfo confirmation;
    EXPECT_FALSE(confirmation.isConfirm());
    EXPECT_FALSE(confirmation.isSendCode());
    EXPECT_EQ(confirmation.getVerificationCode(), QString());
}

TEST(ConfirmationInfo, HoldsWhatItWasGiven)
{
    ConfirmationInfo confirmation;
    confirmation.setConfirm(true);
    EXPECT_TRUE(confirmation.isConfirm());
    EXPECT_FALSE(confirmation.isSendCode());
    confirmation.setSendCode(true);
    EXPECT_TRUE(confirmation.isSendCode());
    confirmation.setVerificationCode(u"A1"_s);
    EXPECT_EQ(confirmation.getVerificationCode(), u"A1"_s);
}

class ConfirmationComparison : public testing::Test
{
protected:
    static void set(ConfirmationInfo &info, bool confirm, bool sendCode, const QString &code)
    {
        info.setConfirm(confirm);
        info.setSendCode(sendCode);
        info.setVerificationCode(code);
    }
    ConfirmationInfo left;
    ConfirmationInfo right;
};

TEST_F(ConfirmationComparison, EqualInEveryFieldIsEqual)
{
    set(left, true, true, u"A1"_s);
    set(right, true, true, u"A1"_s);
    EXPECT_TRUE(left == right);
    EXPECT_TRUE(left == left);
}

TEST_F(ConfirmationComparison, OneDifferentFieldIsEnough)
{
    struct Row
    {
        bool confirm;
        bool sendCode;
        QString code;
    };
    set(left, true, true, u"A1"_s);
    for (const Row &row : {Row{false, true, u"A1"_s}, Row{true, false, u"A1"_s},
             Row{true, true, u"A12"_s}, Row{true, true, u"a1"_s}}) {
        set(right, row.confirm, row.sendCode, row.code);
        EXPECT_FALSE(left == right) << row.code.toStdString();
    }
}

TEST_F(ConfirmationComparison, TheCodeCanBeOverridden)
{
    struct Overriding : ConfirmationInfo
    {
        QString getVerificationCode() const override { return u"overridden"_s; }
    };
    const Overriding overriding;
    const ConfirmationInfo &same = overriding;
    EXPECT_TRUE(same == overriding);
    EXPECT_EQ(same.getVerificationCode(), u"overridden"_s);
}

} // namespace
