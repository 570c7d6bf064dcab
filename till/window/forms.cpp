#include "till/window/forms.h"

#include "host/config/config.h"
#include "till/window/texts.h"

using namespace Qt::StringLiterals;

namespace till::forms {

namespace {

const QString positiveNumber = u"(?=.*[1-9])\\d{1,9}([.,]\\d{1,3})?"_s;
const QString code = u"\\S+"_s;

InputTextFormParameters form(
    const tr::Tr &name, const tr::Tr &question, const QString &expression, const tr::Tr &complaint)
{
    InputTextFormParameters parameters;
    parameters.title = name;
    parameters.message = question;
    parameters.scanError = complaint;
    parameters.okButton = texts::ok;
    parameters.cancelButton = texts::cancel;
    parameters.regularExpression = expression;
    parameters.showDigitalKeyboard
        = Singleton<Config>::instance()->getBool(u"Till:digitalKeyboard"_s, false);
    return parameters;
}

QString orNothing(const QString &expression)
{
    return u"(%1)?"_s.arg(expression);
}

} // namespace

InputTextFormParameters quantity()
{
    return form(texts::functionQuantity, texts::askQuantity, positiveNumber, texts::notANumber);
}

InputTextFormParameters card()
{
    return form(texts::functionCard, texts::askCard, code, texts::notACode);
}

InputTextFormParameters coupon()
{
    return form(texts::functionCoupon, texts::askCoupon, code, texts::notACode);
}

InputTextFormParameters points()
{
    return form(
        texts::functionPoints, texts::askPoints, orNothing(positiveNumber), texts::notANumber);
}

InputTextFormParameters soldCheque()
{
    return form(texts::functionReturn, texts::askReturn, orNothing(code), texts::notACode);
}

double number(const QString &text)
{
    return QString(text).replace(u',', u'.').toDouble();
}

} // namespace till::forms
