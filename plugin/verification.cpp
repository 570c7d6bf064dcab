#include "plugin/verification.h"

#include "common/host/services.h"
#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace verification {

bool isRequired(double points, double limit)
{
    return !money::equal(limit, noLimit) && money::counts(points - limit);
}

namespace {

InputTextFormParameters form()
{
    InputTextFormParameters parameters;
    parameters.title = messages::verificationCodeTitle();
    parameters.message = messages::verificationCodePrompt();
    parameters.scanError = messages::scanError();
    parameters.okButton = messages::formOk();
    parameters.cancelButton = messages::formCancel();
    parameters.regularExpression = u"[A-Za-z0-9]{1,}"_s;
    parameters.showDigitalKeyboard = Singleton<Config>::instance()->getBool(
        u"Ui.korvelVerification:showDigitalKeyboard"_s, false);
    parameters.formName = u"korvelVerification"_s;
    return parameters;
}

} // namespace

} // namespace verification

QString KorvelLoyaltyOnline::inputVerificationCode() const
{
    sendStopEvent();
    const auto answer = MockFactory<Dialog>::create()->showInputTextForm(verification::form());
    if (answer.canceled())
        throw KorvelException(messages::verificationCodeCancelled());
    sendStartEvent();
    return answer.getData().toString();
}

void KorvelLoyaltyOnline::verifyWriteOff(const QMap<QString, QVariant> &result) const
{
    const QVariant sent = result.value(korvel::result::verificationCode);
    if (inputVerificationCode() != sent.toString())
        throw KorvelException(messages::incorrectVerificationCode());
    setPluginData(korvel::plugindata::verificationCode, sent);
}
