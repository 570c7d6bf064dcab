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

void show(const tr::Tr &message)
{
    MockFactory<Dialog>::create()->showMessage(
        message, EDialogKind::Attention, EDialogDuration::UntilAnswered);
}

} // namespace messages
