#include "plugin/messages.h"

#include "common/host/services.h"

using namespace Qt::Literals::StringLiterals;

namespace messages {

namespace {

QString inLines(const QStringList &numbers)
{
    return numbers.join(u'\n');
}

} // namespace

tr::Tr processLoyalty()
{
    return {u"processLoyaltyMessage"_s, u"Обращение к системе лояльности"_s};
}

tr::Tr noConnection()
{
    return {u"korvelNoConnection"_s,
        u"Нет связи с сервером. Возможные операции с баллами будут выполнены позднее"_s};
}

tr::Tr internalError()
{
    return {u"korvelOnlineInternalError"_s, u"Нет связи с лояльностью"_s};
}

tr::Tr returnCoupons(const QStringList &numbers)
{
    return tr::Tr(u"korvelReturnCoupons"_s, u"Купоны неприменимы. Верните покупателю купоны:\n%1"_s)
        .arg(inLines(numbers));
}

tr::Tr internalErrorBackCoupon(const QStringList &numbers)
{
    return tr::Tr(u"korvelOnlineInternalErrorBackCoupon"_s,
        u"Нет связи с лояльностью. Верните покупателю купоны: %1"_s)
        .arg(inLines(numbers));
}

tr::Tr checkRegistrationError()
{
    return {u"korvelCheckRegistrationError"_s,
        u"Доступных баллов недостаточно для оплаты.\n"
        u"Отмените оплату, вернитесь в формирование и повторите попытку списания бонусов"_s};
}

tr::Tr insufficientBonusBalance()
{
    return {u"korvelInsufficientBonusBalance"_s, u"Доступных баллов недостаточно для оплаты"_s};
}

tr::Tr incorrectVerificationCode()
{
    return {u"korvelIncorrectVerificationCode"_s, u"Неверный код подтверждения"_s};
}

tr::Tr verificationCodeCancelled()
{
    return {u"korvelVerificationCodeCancelInput"_s, u"Ввод кода подтверждения отменен"_s};
}

tr::Tr verificationCodeTitle()
{
    return {u"korvelVerificationCodeInputTitle"_s, u"Подтверждение списания"_s};
}

tr::Tr verificationCodePrompt()
{
    return {u"korvelVerificationCodeInputMessage"_s, u"Введите код подтверждения"_s};
}

tr::Tr scanError()
{
    return {
        u"inputTextFormScanError"_s, u"Ошибка разбора введенных данных, повторите сканирование"_s};
}

tr::Tr formOk()
{
    return {u"inputTextFormOkBtn"_s, u"ОК"_s};
}

tr::Tr formCancel()
{
    return {u"inputTextFormCancelBtn"_s, u"Отмена"_s};
}

tr::Tr forbidChangeQuantity()
{
    return {u"korvelOnlineForbidChangeQuantity"_s,
        u"Изменение количества для позиции с уценкой запрещено"_s};
}

tr::Tr interchangeStickers()
{
    return {u"korvelInterchangeStickers"_s, u"Использовать фишки?"_s};
}

tr::Tr choiceOk()
{
    return {u"dialogChoiceOk"_s, u"ОК"_s};
}

tr::Tr choiceCancel()
{
    return {u"dialogChoiceCancel"_s, u"Отмена"_s};
}

bool askForStickers()
{
    return MockFactory<Dialog>::create()->showChoice(interchangeStickers(), choiceOk(),
        choiceCancel(), EDialogKind::Attention, EDialogDuration::UntilAnswered);
}

void show(const tr::Tr &message)
{
    MockFactory<Dialog>::create()->showMessage(
        message, EDialogKind::Attention, EDialogDuration::UntilAnswered);
}

} // namespace messages
