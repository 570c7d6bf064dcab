#pragma once

#include "host/framework/tr.h"

/// Every text of the window: an id that translations are looked up by, and the Russian text.
namespace till::texts {

// The cheque.
inline const tr::Tr emptyDesk(QStringLiteral("windowEmptyDesk"), QStringLiteral("Касса свободна"));
inline const tr::Tr sale(QStringLiteral("windowSale"), QStringLiteral("Продажа, чек № %1"));
inline const tr::Tr returnOfSale(
    QStringLiteral("windowReturnOfSale"), QStringLiteral("Возврат № %1 по чеку № %2"));
inline const tr::Tr returnWithoutSale(
    QStringLiteral("windowReturnWithoutSale"), QStringLiteral("Возврат без чека, № %1"));
inline const tr::Tr correction(
    QStringLiteral("windowCorrection"), QStringLiteral("Коррекция № %1"));

// The customer's card on the cheque.
inline const tr::Tr cardMissing(
    QStringLiteral("windowCardMissing"), QStringLiteral("карта не предъявлена"));
inline const tr::Tr cardAccepted(
    QStringLiteral("windowCardAccepted"), QStringLiteral("карта принята"));
inline const tr::Tr cardRegistered(
    QStringLiteral("windowCardRegistered"), QStringLiteral("чек зарегистрирован"));
inline const tr::Tr cardRefused(
    QStringLiteral("windowCardRefused"), QStringLiteral("карта %1 не принята: %2"));
inline const tr::Tr cardOfSale(
    QStringLiteral("windowCardOfSale"), QStringLiteral("карта из чека продажи"));

// The line that tells the state.
inline const tr::Tr serviceNotAsked(QStringLiteral("windowServiceNotAsked"),
    QStringLiteral("Система лояльности: запросов ещё не было"));
inline const tr::Tr serviceOnline(
    QStringLiteral("windowServiceOnline"), QStringLiteral("Система лояльности: на связи"));
inline const tr::Tr serviceOffline(
    QStringLiteral("windowServiceOffline"), QStringLiteral("Система лояльности: нет связи с %1"));
inline const tr::Tr queueEmpty(
    QStringLiteral("windowQueueEmpty"), QStringLiteral("Очередь отправки пуста"));
inline const tr::Tr queueWaiting(QStringLiteral("windowQueueWaiting"),
    QStringLiteral("Ждут отправки %n сообщений, самое старое — %1"));
inline const tr::Tr queueSending(
    QStringLiteral("windowQueueSending"), QStringLiteral("идёт отправка"));
inline const tr::Tr queueNeedsPerson(
    QStringLiteral("windowQueueNeedsPerson"), QStringLiteral("требуют внимания: %1"));
inline const tr::Tr queueUnreached(
    QStringLiteral("windowQueueUnreached"), QStringLiteral("сервер очереди недоступен"));
inline const tr::Tr queueUnusable(
    QStringLiteral("windowQueueUnusable"), QStringLiteral("Очередь отправки недоступна: %1"));
inline const tr::Tr ageInSeconds(QStringLiteral("windowAgeInSeconds"), QStringLiteral("%1 с"));
inline const tr::Tr ageInMinutes(QStringLiteral("windowAgeInMinutes"), QStringLiteral("%1 мин"));
inline const tr::Tr ageInHours(QStringLiteral("windowAgeInHours"), QStringLiteral("%1 ч %2 мин"));
inline const tr::Tr ageInDays(QStringLiteral("windowAgeInDays"), QStringLiteral("%1 д %2 ч"));

// Messages and questions of the till itself.
inline const tr::Tr toCustomer(
    QStringLiteral("windowToCustomer"), QStringLiteral("Покупателю: %1"));
inline const tr::Tr stopped(
    QStringLiteral("windowStopped"), QStringLiteral("Система лояльности не разрешила операцию"));
inline const tr::Tr noPositionChosen(
    QStringLiteral("windowNoPositionChosen"), QStringLiteral("Выберите позицию чека"));
inline const tr::Tr lineNotEmpty(QStringLiteral("windowLineNotEmpty"),
    QStringLiteral("Сначала введите или сотрите набранное: %1"));
inline const tr::Tr askCancel(
    QStringLiteral("windowAskCancel"), QStringLiteral("Отменить открытый документ?"));
inline const tr::Tr askEndShift(
    QStringLiteral("windowAskEndShift"), QStringLiteral("Завершить смену?"));
inline const tr::Tr yes(QStringLiteral("windowYes"), QStringLiteral("Да"));
inline const tr::Tr no(QStringLiteral("windowNo"), QStringLiteral("Нет"));
inline const tr::Tr ok(QStringLiteral("windowOk"), QStringLiteral("ОК"));
inline const tr::Tr cancel(QStringLiteral("windowCancel"), QStringLiteral("Отмена"));
inline const tr::Tr askQuantity(QStringLiteral("windowAskQuantity"), QStringLiteral("Количество"));
inline const tr::Tr askCard(QStringLiteral("windowAskCard"), QStringLiteral("Номер карты"));
inline const tr::Tr askPoints(QStringLiteral("windowAskPoints"),
    QStringLiteral("Сколько баллов списать; пусто — сколько можно"));
inline const tr::Tr askCoupon(QStringLiteral("windowAskCoupon"), QStringLiteral("Номер купона"));
inline const tr::Tr askReturn(QStringLiteral("windowAskReturn"),
    QStringLiteral("Номер чека продажи; пусто — возврат без чека"));
inline const tr::Tr notANumber(
    QStringLiteral("windowNotANumber"), QStringLiteral("Введите число, например 2 или 1,5"));
inline const tr::Tr notACode(
    QStringLiteral("windowNotACode"), QStringLiteral("Введите номер без пробелов"));

inline const tr::Tr answerFirst(QStringLiteral("windowAnswerFirst"),
    QStringLiteral("Скан не принят: сначала ответьте на вопрос"));

// The payment.
inline const tr::Tr payment(QStringLiteral("windowPayment"), QStringLiteral("К оплате"));
inline const tr::Tr givenHint(
    QStringLiteral("windowGivenHint"), QStringLiteral("Получено; пусто — без сдачи"));
inline const tr::Tr change(QStringLiteral("windowChange"), QStringLiteral("Сдача: %1"));
inline const tr::Tr stillMissing(
    QStringLiteral("windowStillMissing"), QStringLiteral("Останется доплатить: %1"));
inline const tr::Tr payCash(QStringLiteral("windowPayCash"), QStringLiteral("Наличными"));
inline const tr::Tr payCard(QStringLiteral("windowPayCard"), QStringLiteral("Картой"));
inline const tr::Tr notASum(
    QStringLiteral("windowNotASum"), QStringLiteral("Введите сумму, например 500 или 99,50"));
inline const tr::Tr cardPaysNoMore(
    QStringLiteral("windowCardPaysNoMore"), QStringLiteral("Картой можно оплатить не больше %1"));

// The page of exchanges.
inline const tr::Tr exchanges(QStringLiteral("windowExchanges"), QStringLiteral("Обмены"));
inline const tr::Tr noExchanges(QStringLiteral("windowNoExchanges"),
    QStringLiteral("Обменов с системой лояльности ещё не было"));
inline const tr::Tr exchangeTime(QStringLiteral("windowExchangeTime"), QStringLiteral("Время"));
inline const tr::Tr exchangeOperation(
    QStringLiteral("windowExchangeOperation"), QStringLiteral("Операция"));
inline const tr::Tr exchangeOutcome(
    QStringLiteral("windowExchangeOutcome"), QStringLiteral("Результат"));
inline const tr::Tr exchangeRequest(
    QStringLiteral("windowExchangeRequest"), QStringLiteral("Запрос"));
inline const tr::Tr exchangeAnswer(QStringLiteral("windowExchangeAnswer"), QStringLiteral("Ответ"));
inline const tr::Tr exchangeBalance(
    QStringLiteral("windowExchangeBalance"), QStringLiteral("Баланс"));
inline const tr::Tr exchangeCalculation(
    QStringLiteral("windowExchangeCalculation"), QStringLiteral("Расчёт"));
inline const tr::Tr exchangeRegistration(
    QStringLiteral("windowExchangeRegistration"), QStringLiteral("Регистрация"));
inline const tr::Tr exchangeReturn(
    QStringLiteral("windowExchangeReturn"), QStringLiteral("Возврат"));
inline const tr::Tr exchangeRollback(
    QStringLiteral("windowExchangeRollback"), QStringLiteral("Отмена"));
inline const tr::Tr exchangeOther(QStringLiteral("windowExchangeOther"), QStringLiteral("Другое"));
inline const tr::Tr exchangeDone(
    QStringLiteral("windowExchangeDone"), QStringLiteral("%1 · успешно"));
inline const tr::Tr exchangeFailed(
    QStringLiteral("windowExchangeFailed"), QStringLiteral("нет ответа (%1): %2"));
inline const tr::Tr exchangeOfNobody(
    QStringLiteral("windowExchangeOfNobody"), QStringLiteral("не ответ системы лояльности"));
inline const tr::Tr exchangeMilliseconds(
    QStringLiteral("windowExchangeMilliseconds"), QStringLiteral("%1 мс"));
inline const tr::Tr copy(QStringLiteral("windowCopy"), QStringLiteral("Копировать"));
inline const tr::Tr copied(
    QStringLiteral("windowCopied"), QStringLiteral("Скопировано, номера карт скрыты"));
inline const tr::Tr back(QStringLiteral("windowBack"), QStringLiteral("К продаже"));

// The service's page and the demonstration.
inline const tr::Tr servicePage(
    QStringLiteral("windowServicePage"), QStringLiteral("Страница сервиса"));
inline const tr::Tr servicePageNotOpened(QStringLiteral("windowServicePageNotOpened"),
    QStringLiteral("Не удалось открыть браузер. Страница сервиса: %1"));
inline const tr::Tr demoOffer(QStringLiteral("windowDemoOffer"),
    QStringLiteral("Настройки не найдены: не указан --config, и в текущей папке нет till.ini.\n\n"
                   "Запустить демонстрацию? На этом компьютере запустится сервис лояльности с "
                   "примерами карт и товаров. Всё, что продано в демонстрации, забывается, когда "
                   "окно закрывается."));
inline const tr::Tr demoStart(
    QStringLiteral("windowDemoStart"), QStringLiteral("Запустить демонстрацию"));
inline const tr::Tr demoDecline(QStringLiteral("windowDemoDecline"), QStringLiteral("Выйти"));
inline const tr::Tr noConfiguration(QStringLiteral("windowNoConfiguration"),
    QStringLiteral("нет настроек; укажите файл в --config или положите till.ini в текущую папку"));
inline const tr::Tr demoServiceMissing(QStringLiteral("windowDemoServiceMissing"),
    QStringLiteral("для демонстрации нужна программа korvel-service, её нет ни рядом с этой "
                   "программой, ни в PATH; установите её или укажите настройки в --config"));
inline const tr::Tr demoServiceNotStarted(QStringLiteral("windowDemoServiceNotStarted"),
    QStringLiteral("сервис демонстрации %1 не запустился (%2); запустите его сами и укажите его "
                   "адрес в настройках, файл которых задаёт --config"));
inline const tr::Tr demoServiceEnded(
    QStringLiteral("windowDemoServiceEnded"), QStringLiteral("завершился с кодом %1"));
inline const tr::Tr demoServiceSilent(
    QStringLiteral("windowDemoServiceSilent"), QStringLiteral("не начал отвечать вовремя"));
inline const tr::Tr demoFileNotWritten(QStringLiteral("windowDemoFileNotWritten"),
    QStringLiteral("%1: демонстрация не может записать этот файл (%2); освободите место или "
                   "укажите другую папку в TMPDIR"));
inline const tr::Tr demoStarting(
    QStringLiteral("windowDemoStarting"), QStringLiteral("Запускается сервис лояльности…"));
inline const tr::Tr demoBand(QStringLiteral("windowDemoBand"),
    QStringLiteral("Демонстрация. Товары 1001–1010, карта 2900000000017, код подтверждения 4829. "
                   "Сервис: %1"));

// Functions of the bar.
inline const tr::Tr functionSale(QStringLiteral("windowFunctionSale"), QStringLiteral("Продажа"));
inline const tr::Tr functionQuantity(
    QStringLiteral("windowFunctionQuantity"), QStringLiteral("Количество"));
inline const tr::Tr functionRemove(
    QStringLiteral("windowFunctionRemove"), QStringLiteral("Сторно"));
inline const tr::Tr functionCard(QStringLiteral("windowFunctionCard"), QStringLiteral("Карта"));
inline const tr::Tr functionPoints(QStringLiteral("windowFunctionPoints"), QStringLiteral("Баллы"));
inline const tr::Tr functionCoupon(QStringLiteral("windowFunctionCoupon"), QStringLiteral("Купон"));
inline const tr::Tr functionTotal(QStringLiteral("windowFunctionTotal"), QStringLiteral("Итог"));
inline const tr::Tr functionClose(
    QStringLiteral("windowFunctionClose"), QStringLiteral("Закрыть чек"));
inline const tr::Tr functionCancel(
    QStringLiteral("windowFunctionCancel"), QStringLiteral("Отменить чек"));
inline const tr::Tr functionReturn(
    QStringLiteral("windowFunctionReturn"), QStringLiteral("Возврат"));
inline const tr::Tr functionEndShift(
    QStringLiteral("windowFunctionEndShift"), QStringLiteral("Конец смены"));
inline const tr::Tr functionMessagesRead(
    QStringLiteral("windowFunctionMessagesRead"), QStringLiteral("Прочитано"));

// The window's own words.
inline const tr::Tr windowTitle(QStringLiteral("windowTitle"), QStringLiteral("Касса"));
inline const tr::Tr columnNumber(QStringLiteral("windowColumnNumber"), QStringLiteral("№"));
inline const tr::Tr columnCode(QStringLiteral("windowColumnCode"), QStringLiteral("Артикул"));
inline const tr::Tr columnName(QStringLiteral("windowColumnName"), QStringLiteral("Наименование"));
inline const tr::Tr columnQuantity(
    QStringLiteral("windowColumnQuantity"), QStringLiteral("Кол-во"));
inline const tr::Tr columnPrice(QStringLiteral("windowColumnPrice"), QStringLiteral("Цена"));
inline const tr::Tr columnDiscount(
    QStringLiteral("windowColumnDiscount"), QStringLiteral("Скидка"));
inline const tr::Tr columnSum(QStringLiteral("windowColumnSum"), QStringLiteral("Сумма"));
inline const tr::Tr columnPoints(QStringLiteral("windowColumnPoints"), QStringLiteral("Баллы"));
inline const tr::Tr customer(QStringLiteral("windowCustomer"), QStringLiteral("Покупатель"));
inline const tr::Tr customerCard(QStringLiteral("windowCustomerCard"), QStringLiteral("Карта"));
inline const tr::Tr customerType(QStringLiteral("windowCustomerType"), QStringLiteral("Тип карты"));
inline const tr::Tr customerBalance(
    QStringLiteral("windowCustomerBalance"), QStringLiteral("Баланс"));
inline const tr::Tr customerAvailable(
    QStringLiteral("windowCustomerAvailable"), QStringLiteral("Доступно"));
inline const tr::Tr customerChosen(
    QStringLiteral("windowCustomerChosen"), QStringLiteral("Списывается"));
inline const tr::Tr customerEarned(
    QStringLiteral("windowCustomerEarned"), QStringLiteral("Начисляется"));
inline const tr::Tr customerStatus(
    QStringLiteral("windowCustomerStatus"), QStringLiteral("Состояние"));
inline const tr::Tr coupons(QStringLiteral("windowCoupons"), QStringLiteral("Купоны"));
inline const tr::Tr paper(QStringLiteral("windowPaper"), QStringLiteral("Напечатано"));
inline const tr::Tr preview(
    QStringLiteral("windowPreview"), QStringLiteral("Так напечатается чек"));
inline const tr::Tr total(QStringLiteral("windowTotal"), QStringLiteral("ИТОГО"));
inline const tr::Tr inputHint(
    QStringLiteral("windowInputHint"), QStringLiteral("Товар, карта, купон"));
inline const tr::Tr offlineSign(QStringLiteral("windowOfflineSign"),
    QStringLiteral("НЕТ СВЯЗИ С СИСТЕМОЙ ЛОЯЛЬНОСТИ. Продавать можно: чеки ждут отправки. "
                   "Скидки, оплата баллами и купоны могут быть недоступны"));
inline const tr::Tr busy(
    QStringLiteral("windowBusy"), QStringLiteral("Обращение к системе лояльности"));
inline const tr::Tr busySeconds(QStringLiteral("windowBusySeconds"), QStringLiteral("%1 с"));

} // namespace till::texts
