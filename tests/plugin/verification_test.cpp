#include "plugin/verification.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Verification : public PluginFixture
{
protected:
    Verification()
    {
        givenSetting(u"KorvelLoyaltyOnline:useConfirmation"_s, u"true"_s);
        givenSetting(u"KorvelLoyaltyOnline:noConfirmationBonusLimit"_s, u"100"_s);
        givenSaleWithCard();
        givenAnswer({{key::verificationCode, u"A1b2"_s},
            {key::positions, Map{{u"1"_s, Map{{key::writeoffBonus, 5.0}}}}}});
    }
    bool whenSpent(double points)
    {
        plugin().setPointsForSpend(document(), points);
        return plugin().spendPoints();
    }
    void givenEntered(const QString &code) { givenFormAnswer(core::BasicDialog::Result(code)); }
    korvel::ConfirmationInfo &sent() { return *client().requests.first().confirmation; }
};

TEST_F(Verification, ARightCodeIsAskedBetweenTheRequestAndThePayment)
{
    givenEntered(u"A1b2"_s);
    EXPECT_TRUE(whenSpent(150.0));
    thenSteps({u"sale Soft"_s, u"event 73"_s, u"form korvelVerification"_s, u"event 72"_s,
        u"fillChequeData"_s, u"fillPositionsData"_s, u"save 17"_s});
    EXPECT_EQ(stored(u"verificationCode"_s), QVariant(u"A1b2"_s));
    EXPECT_EQ(plugin().getBonusImpactsForSpend().size(), 1);
}

TEST_F(Verification, OverTheLimitTheServiceIsToldToSendACode)
{
    whenSpent(100.01);
    EXPECT_TRUE(sent().isConfirm());
    EXPECT_TRUE(sent().isSendCode());
    EXPECT_EQ(sent().getVerificationCode(), QString());
}

TEST_F(Verification, AtTheLimitNoCodeIsAsked)
{
    EXPECT_TRUE(whenSpent(100.005));
    EXPECT_TRUE(sent() == korvel::ConfirmationInfo());
    EXPECT_TRUE(story().forms.isEmpty());
    EXPECT_FALSE(stored(u"verificationCode"_s).isValid());
}

TEST_F(Verification, WithoutConfirmationNoRecordIsSentWhateverTheAmount)
{
    plugin().useConfirmation = false;
    EXPECT_TRUE(whenSpent(1000.0));
    EXPECT_EQ(client().requests.first().confirmation, nullptr);
    EXPECT_TRUE(story().forms.isEmpty());
}

TEST_F(Verification, WithoutALimitNoCodeIsAskedWhateverTheAmount)
{
    plugin().noConfirmationBonusLimit = -1.0;
    EXPECT_TRUE(whenSpent(1000.0));
    EXPECT_TRUE(sent() == korvel::ConfirmationInfo());
}

TEST_F(Verification, AWrongCodeRefusesThePayment)
{
    for (const auto &code : {u"a1b2"_s, u"A1b2 "_s, u""_s}) {
        givenEntered(code);
        client().answers = {{{{key::verificationCode, u"A1b2"_s}}, {}, false}};
        EXPECT_FALSE(whenSpent(150.0)) << code.toStdString();
        thenLastError(u"Неверный код подтверждения"_s);
        EXPECT_EQ(chequeData().value(key::paidByBonus), QVariant(0.0));
    }
    EXPECT_EQ(plugin().getLastErrorString().id(), u"korvelIncorrectVerificationCode"_s);
    EXPECT_TRUE(plugin().getBonusImpactsForSpend().isEmpty());
    EXPECT_FALSE(stored(u"verificationCode"_s).isValid());
}

TEST_F(Verification, CancellingRefusesThePaymentWithoutAStartEvent)
{
    EXPECT_FALSE(whenSpent(150.0));
    thenSteps({u"sale Soft"_s, u"event 73"_s, u"form korvelVerification"_s});
    thenLastError(u"Ввод кода подтверждения отменен"_s);
    EXPECT_EQ(plugin().getLastErrorString().id(), u"korvelVerificationCodeCancelInput"_s);
    EXPECT_EQ(chequeData().value(key::paidByBonus), QVariant(0.0));
}

TEST_F(Verification, TheFormAsksForLettersAndDigits)
{
    givenEntered(u"x"_s);
    EXPECT_EQ(plugin().inputVerificationCode(), u"x"_s);
    const InputTextFormParameters form = story().forms.first();
    EXPECT_EQ(
        form.title, tr::Tr(u"korvelVerificationCodeInputTitle"_s, u"Подтверждение списания"_s));
    EXPECT_EQ(form.message,
        tr::Tr(u"korvelVerificationCodeInputMessage"_s, u"Введите код подтверждения"_s));
    EXPECT_EQ(form.regularExpression, u"[A-Za-z0-9]{1,}"_s);
    EXPECT_EQ(form.text, QString());
    EXPECT_EQ(form.formName, u"korvelVerification"_s);
    EXPECT_FALSE(form.showDigitalKeyboard);
}

TEST_F(Verification, TheFormNamesItsButtonsAndAnUnreadableScan)
{
    givenEntered(u"x"_s);
    static_cast<void>(plugin().inputVerificationCode());
    const InputTextFormParameters form = story().forms.first();
    EXPECT_EQ(form.okButton, tr::Tr(u"inputTextFormOkBtn"_s, u"ОК"_s));
    EXPECT_EQ(form.cancelButton, tr::Tr(u"inputTextFormCancelBtn"_s, u"Отмена"_s));
    EXPECT_EQ(form.scanError,
        tr::Tr(u"inputTextFormScanError"_s,
            u"Ошибка разбора введенных данных, повторите сканирование"_s));
}

TEST_F(Verification, TheKeyboardSettingIsReadAtEachUse)
{
    givenEntered(u"x"_s);
    plugin();
    givenSetting(u"Ui.korvelVerification:showDigitalKeyboard"_s, u"true"_s);
    static_cast<void>(plugin().inputVerificationCode());
    EXPECT_TRUE(story().forms.first().showDigitalKeyboard);
}

struct LimitRow
{
    const char *name;
    double points;
    double limit;
    bool required;
};

void PrintTo(const LimitRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class VerificationLimit : public testing::TestWithParam<LimitRow>
{ };

TEST_P(VerificationLimit, DecidesWhetherACodeIsAsked)
{
    EXPECT_EQ(verification::isRequired(GetParam().points, GetParam().limit), GetParam().required);
}

INSTANTIATE_TEST_SUITE_P(Rows, VerificationLimit,
    testing::Values(LimitRow{"NoLimit", 1e6, -1.0, false},
        LimitRow{"WithinTheToleranceOfNoLimit", 1e6, -1.004, false},
        LimitRow{"AnyOtherNegativeLimit", 1.0, -1.01, true}, LimitRow{"ZeroLimit", 0.01, 0.0, true},
        LimitRow{"AtTheLimit", 100.0, 100.0, false},
        LimitRow{"WithinTheTolerance", 100.005, 100.0, false},
        LimitRow{"OverTheLimit", 100.01, 100.0, true}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
