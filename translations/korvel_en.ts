<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
<context>
    <name></name>
    <message id="dialogChoiceCancel">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="dialogChoiceOk">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="documentNotSaved">
        <source>Не удалось сохранить документ: %1</source>
        <translation>The document could not be saved: %1</translation>
    </message>
    <message id="inputTextFormCancelBtn">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="inputTextFormOkBtn">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="inputTextFormScanError">
        <source>Ошибка разбора введенных данных, повторите сканирование</source>
        <translation>What was scanned cannot be read; scan it again</translation>
    </message>
    <message id="korvelCheckRegistrationError">
        <source>Доступных баллов недостаточно для оплаты.
Отмените оплату, вернитесь в формирование и повторите попытку списания бонусов</source>
        <translation>There are not enough points for this payment.
Cancel the payment, go back to the cheque and pay with points again</translation>
    </message>
    <message id="korvelForbiddenCardStatus%1">
        <source>Запрещенный статус карты '%1'</source>
        <translation>Card status '%1' is forbidden</translation>
    </message>
    <message id="korvelForbiddenCardStatus3">
        <source>Карта заблокирована</source>
        <translation>The card is blocked</translation>
    </message>
    <message id="korvelForbiddenCardStatus5">
        <source>Завершена</source>
        <translation>The card is no longer valid</translation>
    </message>
    <message id="korvelForbiddenCardStatus6">
        <source>Карта удалена</source>
        <translation>The card was deleted</translation>
    </message>
    <message id="korvelForbiddenCardStatus9">
        <source>Незарегистрированная карта</source>
        <translation>The card is not registered</translation>
    </message>
    <message id="korvelIncorrectVerificationCode">
        <source>Неверный код подтверждения</source>
        <translation>Wrong verification code</translation>
    </message>
    <message id="korvelInsufficientBonusBalance">
        <source>Доступных баллов недостаточно для оплаты</source>
        <translation>There are not enough points for this payment</translation>
    </message>
    <message id="korvelInterchangeStickers">
        <source>Использовать фишки?</source>
        <translation>Use the stickers?</translation>
    </message>
    <message id="korvelNoConnection">
        <source>Нет связи с сервером. Возможные операции с баллами будут выполнены позднее</source>
        <translation>No connection with the server. What can be done with points will be done later</translation>
    </message>
    <message id="korvelOnlineForbidChangeQuantity">
        <source>Изменение количества для позиции с уценкой запрещено</source>
        <translation>The quantity of a markdown position cannot be changed</translation>
    </message>
    <message id="korvelOnlineInternalError">
        <source>Нет связи с лояльностью</source>
        <translation>No connection with the loyalty service</translation>
    </message>
    <message id="korvelOnlineInternalErrorBackCoupon">
        <source>Нет связи с лояльностью. Верните покупателю купоны: %1</source>
        <translation>No connection with the loyalty service. Give these coupons back to the customer: %1</translation>
    </message>
    <message id="korvelReturnCoupons">
        <source>Купоны неприменимы. Верните покупателю купоны:
%1</source>
        <translation>The coupons do not apply. Give these coupons back to the customer:
%1</translation>
    </message>
    <message id="korvelVerificationCodeCancelInput">
        <source>Ввод кода подтверждения отменен</source>
        <translation>The verification code was not entered</translation>
    </message>
    <message id="korvelVerificationCodeInputMessage">
        <source>Введите код подтверждения</source>
        <translation>Enter the verification code</translation>
    </message>
    <message id="korvelVerificationCodeInputTitle">
        <source>Подтверждение списания</source>
        <translation>Confirm the payment with points</translation>
    </message>
    <message id="printTemplateMissing">
        <source>Не найден шаблон печати «%1» в папках: %2. Проверьте настройку TextPrinter:templates</source>
        <translation>The print template "%1" was not found in the folders: %2. Check the setting TextPrinter:templates</translation>
    </message>
    <message id="printTemplateWrong">
        <source>Ошибка в шаблоне печати «%1»: %2</source>
        <translation>The print template "%1" has an error: %2</translation>
    </message>
    <message id="processLoyaltyMessage">
        <source>Обращение к системе лояльности</source>
        <translation>Asking the loyalty service</translation>
    </message>
    <message id="queueMessageNotKept">
        <source>Не удалось сохранить чек в очередь отправки: %1. Запишите номер чека и сообщите администратору</source>
        <translation>The cheque could not be put into the outgoing queue: %1. Write down its number and tell the administrator</translation>
    </message>
    <message id="queueSalvaged">
        <source>Из отложенной очереди %1 восстановлено сообщений: %2, не читаются: %3</source>
        <translation>From the queue that was set aside, %1, messages were saved: %2, unreadable: %3</translation>
    </message>
    <message id="queueSetAside">
        <source>Очередь отправки повреждена (%1) и отложена в файл %2. Сообщите администратору</source>
        <translation>The outgoing queue is damaged (%1) and was set aside as %2. Tell the administrator</translation>
    </message>
    <message id="receiptNotPrinted">
        <source>Не удалось напечатать: %1</source>
        <translation>Nothing could be printed: %1</translation>
    </message>
    <message id="requestIncorrectAnswer">
        <source>Некорректный ответ от сервера</source>
        <translation>The server's answer cannot be understood</translation>
    </message>
    <message id="restClientAnswerCut">
        <source>Ответ сервера %1 получен не полностью</source>
        <translation>The answer of the server %1 was cut off</translation>
    </message>
    <message id="restClientAnswerTooLarge">
        <source>Ответ сервера %1 слишком большой</source>
        <translation>The answer of the server %1 is too large</translation>
    </message>
    <message id="restClientBadAddress">
        <source>Неверный адрес сервера в настройках</source>
        <translation>The address of the server in the settings is wrong</translation>
    </message>
    <message id="restClientBreakerOpen">
        <source>Сервер %1 временно недоступен, повторите позже</source>
        <translation>The server %1 is not available for now; try again later</translation>
    </message>
    <message id="restClientConnectionRefused">
        <source>Нет соединения с сервером %1</source>
        <translation>No connection with the server %1</translation>
    </message>
    <message id="restClientExchangeFailed">
        <source>Ошибка обмена с сервером %1</source>
        <translation>The exchange with the server %1 failed</translation>
    </message>
    <message id="restClientHttpStatus">
        <source>Сервер %1 ответил ошибкой %2</source>
        <translation>The server %1 answered with the error %2</translation>
    </message>
    <message id="restClientNameNotResolved">
        <source>Сервер %1 не найден</source>
        <translation>The server %1 was not found</translation>
    </message>
    <message id="restClientTimedOut">
        <source>Сервер %1 не ответил за %2 с</source>
        <translation>The server %1 did not answer within %2 s</translation>
    </message>
    <message id="restClientTlsFailed">
        <source>Не удалось установить защищённое соединение с сервером %1</source>
        <translation>No secure connection with the server %1 could be made</translation>
    </message>
    <message id="tillChequeQueued">
        <source>Чек уже в очереди отправки и будет зарегистрирован. Закройте чек и оформите возврат</source>
        <translation>The cheque is in the outgoing queue already and will be registered. Close the cheque and make a return</translation>
    </message>
    <message id="tillDelivered">
        <source>Отправка очереди: доставлено %1, отклонено %2, ждут %3</source>
        <translation>Outgoing queue: delivered %1, refused %2, waiting %3</translation>
    </message>
    <message id="tillDeliveryBusy">
        <source>Очередь уже отправляет другая программа</source>
        <translation>Another program is delivering the queue already</translation>
    </message>
    <message id="tillDeliveryParked">
        <source>Отложено до решения администратора: %1, см. korvel-till queue list</source>
        <translation>Put aside until an administrator decides: %1; see korvel-till queue list</translation>
    </message>
    <message id="tillDeliveryUnauthorised">
        <source>Система лояльности не принимает пароль, с которым сохранены чеки. Исправьте пароль в настройках и выполните korvel-till queue reauthorise</source>
        <translation>The loyalty service does not accept the password that the cheques were stored with. Correct the password in the settings and run korvel-till queue reauthorise</translation>
    </message>
    <message id="tillMessageDelivered">
        <source>доставлено</source>
        <translation>delivered</translation>
    </message>
    <message id="tillMessageMissing">
        <source>нет в очереди</source>
        <translation>not in the queue</translation>
    </message>
    <message id="tillMessageMoved">
        <source>перенесено в файл %1</source>
        <translation>moved into the file %1</translation>
    </message>
    <message id="tillMessageParked">
        <source>отложено до решения администратора</source>
        <translation>put aside until an administrator decides</translation>
    </message>
    <message id="tillMessagePending">
        <source>ждёт отправки</source>
        <translation>waiting to be sent</translation>
    </message>
    <message id="tillMessageRefused">
        <source>отклонено</source>
        <translation>refused</translation>
    </message>
    <message id="tillMessageSending">
        <source>отправляется</source>
        <translation>being sent</translation>
    </message>
    <message id="tillMessageWithoutError">
        <source>нет</source>
        <translation>none</translation>
    </message>
    <message id="tillPluginFailed">
        <source>Непредвиденная ошибка подключаемого модуля</source>
        <translation>The plug-in failed unexpectedly</translation>
    </message>
    <message id="tillPointsNotOffered">
        <source>Оплата баллами недоступна: нет доступных баллов</source>
        <translation>Payment with points is not offered: there are no points available</translation>
    </message>
    <message id="tillQueueFailed">
        <source>Очередь сообщений недоступна, подробности в журнале программы</source>
        <translation>The outgoing queue cannot be used; the program's log tells more</translation>
    </message>
    <message id="tillRegistrationUnknown">
        <source>Чек, возможно, уже зарегистрирован в системе лояльности, а связи с ней нет. Закройте чек и оформите возврат</source>
        <translation>The cheque may be registered with the loyalty service already, and there is no connection with it. Close the cheque and make a return</translation>
    </message>
    <message id="tillReturnUnknown">
        <source>Возврат, возможно, уже проведён в системе лояльности. Закройте его</source>
        <translation>The return may be booked with the loyalty service already. Close it</translation>
    </message>
    <message id="tillShiftOpenDocument">
        <source>Открыт документ %1</source>
        <translation>Document %1 is open</translation>
    </message>
    <message id="tillShiftPoints">
        <source>Баллы: начислено %1, списано %2</source>
        <translation>Points: earned %1, spent %2</translation>
    </message>
    <message id="tillShiftReturns">
        <source>Возвраты: %1, сумма %2</source>
        <translation>Returns: %1, sum %2</translation>
    </message>
    <message id="tillShiftSales">
        <source>Продажи: %1, сумма %2</source>
        <translation>Sales: %1, sum %2</translation>
    </message>
    <message id="tillShiftUnconfirmedReturn">
        <source>Не подтверждён возврат %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</source>
        <translation>Not confirmed: return %1 of %2: sum %3, points: earned %4, spent %5, message: %6, error: %7</translation>
    </message>
    <message id="tillShiftUnconfirmedSale">
        <source>Не подтверждена продажа %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</source>
        <translation>Not confirmed: sale %1 of %2: sum %3, points: earned %4, spent %5, message: %6, error: %7</translation>
    </message>
    <message id="tillShiftWaiting">
        <source>Ждут отправки: %1</source>
        <translation>Waiting to be sent: %1</translation>
    </message>
    <message id="tillTooManyPoints">
        <source>Нельзя оплатить баллами %1: доступно баллов %2, сумма чека %3</source>
        <translation>%1 cannot be paid with points: points available %2, sum of the cheque %3</translation>
    </message>
    <message id="tillWaiting">
        <source>Ждут отправки: %1</source>
        <translation>Waiting to be sent: %1</translation>
    </message>
    <message id="windowAgeInDays">
        <source>%1 д %2 ч</source>
        <translation>%1 d %2 h</translation>
    </message>
    <message id="windowAgeInHours">
        <source>%1 ч %2 мин</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message id="windowAgeInMinutes">
        <source>%1 мин</source>
        <translation>%1 min</translation>
    </message>
    <message id="windowAgeInSeconds">
        <source>%1 с</source>
        <translation>%1 s</translation>
    </message>
    <message id="windowAnswerFirst">
        <source>Скан не принят: сначала ответьте на вопрос</source>
        <translation>The scan was not taken: answer the question first</translation>
    </message>
    <message id="windowAskCancel">
        <source>Отменить открытый документ?</source>
        <translation>Cancel the open document?</translation>
    </message>
    <message id="windowAskCard">
        <source>Номер карты</source>
        <translation>Card number</translation>
    </message>
    <message id="windowAskCoupon">
        <source>Номер купона</source>
        <translation>Coupon number</translation>
    </message>
    <message id="windowAskEndShift">
        <source>Завершить смену?</source>
        <translation>End the shift?</translation>
    </message>
    <message id="windowAskPoints">
        <source>Сколько баллов списать; пусто — сколько можно</source>
        <translation>How many points to pay with; empty: as many as possible</translation>
    </message>
    <message id="windowAskQuantity">
        <source>Количество</source>
        <translation>Quantity</translation>
    </message>
    <message id="windowAskReturn">
        <source>Номер чека продажи; пусто — возврат без чека</source>
        <translation>Number of the sale's cheque; empty: a return without a sale</translation>
    </message>
    <message id="windowBack">
        <source>К продаже</source>
        <translation>To the sale</translation>
    </message>
    <message id="windowBusy">
        <source>Обращение к системе лояльности</source>
        <translation>Asking the loyalty service</translation>
    </message>
    <message id="windowBusySeconds">
        <source>%1 с</source>
        <translation>%1 s</translation>
    </message>
    <message id="windowCancel">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="windowCardAccepted">
        <source>карта принята</source>
        <translation>card accepted</translation>
    </message>
    <message id="windowCardMissing">
        <source>карта не предъявлена</source>
        <translation>no card presented</translation>
    </message>
    <message id="windowCardOfSale">
        <source>карта из чека продажи</source>
        <translation>card of the sale</translation>
    </message>
    <message id="windowCardPaysNoMore">
        <source>Картой можно оплатить не больше %1</source>
        <translation>A card can pay no more than %1</translation>
    </message>
    <message id="windowCardRefused">
        <source>карта %1 не принята: %2</source>
        <translation>card %1 was refused: %2</translation>
    </message>
    <message id="windowCardRegistered">
        <source>чек зарегистрирован</source>
        <translation>cheque registered</translation>
    </message>
    <message id="windowChange">
        <source>Сдача: %1</source>
        <translation>Change: %1</translation>
    </message>
    <message id="windowColumnCode">
        <source>Артикул</source>
        <translation>Article</translation>
    </message>
    <message id="windowColumnDiscount">
        <source>Скидка</source>
        <translation>Discount</translation>
    </message>
    <message id="windowColumnName">
        <source>Наименование</source>
        <translation>Name</translation>
    </message>
    <message id="windowColumnNumber">
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message id="windowColumnPoints">
        <source>Баллы</source>
        <translation>Points</translation>
    </message>
    <message id="windowColumnPrice">
        <source>Цена</source>
        <translation>Price</translation>
    </message>
    <message id="windowColumnQuantity">
        <source>Кол-во</source>
        <translation>Qty</translation>
    </message>
    <message id="windowColumnSum">
        <source>Сумма</source>
        <translation>Sum</translation>
    </message>
    <message id="windowCopied">
        <source>Скопировано, номера карт скрыты</source>
        <translation>Copied, card numbers are hidden</translation>
    </message>
    <message id="windowCopy">
        <source>Копировать</source>
        <translation>Copy</translation>
    </message>
    <message id="windowCorrection">
        <source>Коррекция № %1</source>
        <translation>Correction %1</translation>
    </message>
    <message id="windowCoupons">
        <source>Купоны</source>
        <translation>Coupons</translation>
    </message>
    <message id="windowCustomer">
        <source>Покупатель</source>
        <translation>Customer</translation>
    </message>
    <message id="windowCustomerAvailable">
        <source>Доступно</source>
        <translation>Available</translation>
    </message>
    <message id="windowCustomerBalance">
        <source>Баланс</source>
        <translation>Balance</translation>
    </message>
    <message id="windowCustomerCard">
        <source>Карта</source>
        <translation>Card</translation>
    </message>
    <message id="windowCustomerChosen">
        <source>Списывается</source>
        <translation>Chosen</translation>
    </message>
    <message id="windowCustomerEarned">
        <source>Начисляется</source>
        <translation>Earned</translation>
    </message>
    <message id="windowCustomerStatus">
        <source>Состояние</source>
        <translation>Status</translation>
    </message>
    <message id="windowCustomerType">
        <source>Тип карты</source>
        <translation>Card type</translation>
    </message>
    <message id="windowDemoBand">
        <source>Демонстрация. Товары 1001–1010, карта 2900000000017, код подтверждения 4829. Сервис: %1</source>
        <translation>Demonstration. Articles 1001–1010, card 2900000000017, verification code 4829. Service: %1</translation>
    </message>
    <message id="windowDemoDecline">
        <source>Выйти</source>
        <translation>Quit</translation>
    </message>
    <message id="windowDemoOffer">
        <source>Настройки не найдены: не указан --config, и в текущей папке нет till.ini.

Запустить демонстрацию? На этом компьютере запустится сервис лояльности с примерами карт и товаров. Всё, что продано в демонстрации, забывается, когда окно закрывается.</source>
        <translation>There are no settings: no --config was given, and the current folder has no till.ini.

Start the demonstration? A loyalty service with sample cards and articles will run on this computer. Whatever is sold in the demonstration is forgotten when the window is closed.</translation>
    </message>
    <message id="windowDemoStart">
        <source>Запустить демонстрацию</source>
        <translation>Start the demonstration</translation>
    </message>
    <message id="windowDemoStarting">
        <source>Запускается сервис лояльности…</source>
        <translation>The loyalty service is starting…</translation>
    </message>
    <message id="windowEmptyDesk">
        <source>Касса свободна</source>
        <translation>The till is free</translation>
    </message>
    <message id="windowExchangeAnswer">
        <source>Ответ</source>
        <translation>Answer</translation>
    </message>
    <message id="windowExchangeBalance">
        <source>Баланс</source>
        <translation>Balance</translation>
    </message>
    <message id="windowExchangeCalculation">
        <source>Расчёт</source>
        <translation>Calculation</translation>
    </message>
    <message id="windowExchangeDone">
        <source>%1 · успешно</source>
        <translation>%1 · success</translation>
    </message>
    <message id="windowExchangeFailed">
        <source>нет ответа (%1): %2</source>
        <translation>no answer (%1): %2</translation>
    </message>
    <message id="windowExchangeMilliseconds">
        <source>%1 мс</source>
        <translation>%1 ms</translation>
    </message>
    <message id="windowExchangeOperation">
        <source>Операция</source>
        <translation>Operation</translation>
    </message>
    <message id="windowExchangeOther">
        <source>Другое</source>
        <translation>Other</translation>
    </message>
    <message id="windowExchangeOutcome">
        <source>Результат</source>
        <translation>Outcome</translation>
    </message>
    <message id="windowExchangeRegistration">
        <source>Регистрация</source>
        <translation>Registration</translation>
    </message>
    <message id="windowExchangeRequest">
        <source>Запрос</source>
        <translation>Request</translation>
    </message>
    <message id="windowExchangeReturn">
        <source>Возврат</source>
        <translation>Return</translation>
    </message>
    <message id="windowExchangeRollback">
        <source>Отмена</source>
        <translation>Rollback</translation>
    </message>
    <message id="windowExchangeTime">
        <source>Время</source>
        <translation>Time</translation>
    </message>
    <message id="windowExchanges">
        <source>Обмены</source>
        <translation>Exchanges</translation>
    </message>
    <message id="windowFunctionCancel">
        <source>Отменить чек</source>
        <translation>Cancel</translation>
    </message>
    <message id="windowFunctionCard">
        <source>Карта</source>
        <translation>Card</translation>
    </message>
    <message id="windowFunctionClose">
        <source>Закрыть чек</source>
        <translation>Close</translation>
    </message>
    <message id="windowFunctionCoupon">
        <source>Купон</source>
        <translation>Coupon</translation>
    </message>
    <message id="windowFunctionEndShift">
        <source>Конец смены</source>
        <translation>End shift</translation>
    </message>
    <message id="windowFunctionMessagesRead">
        <source>Прочитано</source>
        <translation>Read</translation>
    </message>
    <message id="windowFunctionPoints">
        <source>Баллы</source>
        <translation>Points</translation>
    </message>
    <message id="windowFunctionQuantity">
        <source>Количество</source>
        <translation>Quantity</translation>
    </message>
    <message id="windowFunctionRemove">
        <source>Сторно</source>
        <translation>Take off</translation>
    </message>
    <message id="windowFunctionReturn">
        <source>Возврат</source>
        <translation>Return</translation>
    </message>
    <message id="windowFunctionSale">
        <source>Продажа</source>
        <translation>Sale</translation>
    </message>
    <message id="windowFunctionTotal">
        <source>Итог</source>
        <translation>Total</translation>
    </message>
    <message id="windowGivenHint">
        <source>Получено; пусто — без сдачи</source>
        <translation>Given; empty: the exact sum</translation>
    </message>
    <message id="windowInputHint">
        <source>Товар, карта, купон</source>
        <translation>Article, card, coupon</translation>
    </message>
    <message id="windowLineNotEmpty">
        <source>Сначала введите или сотрите набранное: %1</source>
        <translation>First enter or delete what was typed: %1</translation>
    </message>
    <message id="windowNo">
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message id="windowNoExchanges">
        <source>Обменов с системой лояльности ещё не было</source>
        <translation>There were no exchanges with the loyalty service yet</translation>
    </message>
    <message id="windowNoPositionChosen">
        <source>Выберите позицию чека</source>
        <translation>Choose a position of the cheque</translation>
    </message>
    <message id="windowNotACode">
        <source>Введите номер без пробелов</source>
        <translation>Enter a number without blanks</translation>
    </message>
    <message id="windowNotANumber">
        <source>Введите число, например 2 или 1,5</source>
        <translation>Enter a number such as 2 or 1.5</translation>
    </message>
    <message id="windowNotASum">
        <source>Введите сумму, например 500 или 99,50</source>
        <translation>Enter a sum, such as 500 or 99.50</translation>
    </message>
    <message id="windowOfflineSign">
        <source>НЕТ СВЯЗИ С СИСТЕМОЙ ЛОЯЛЬНОСТИ. Продавать можно: чеки ждут отправки. Скидки, оплата баллами и купоны могут быть недоступны</source>
        <translation>NO CONNECTION WITH THE LOYALTY SERVICE. You can go on selling: cheques wait to be sent. Discounts, payment with points and coupons may not be available</translation>
    </message>
    <message id="windowOk">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="windowPaper">
        <source>Напечатано</source>
        <translation>Printed</translation>
    </message>
    <message id="windowPayCard">
        <source>Картой</source>
        <translation>By card</translation>
    </message>
    <message id="windowPayCash">
        <source>Наличными</source>
        <translation>Cash</translation>
    </message>
    <message id="windowPayment">
        <source>К оплате</source>
        <translation>To be paid</translation>
    </message>
    <message id="windowPreview">
        <source>Так напечатается чек</source>
        <translation>The receipt to be printed</translation>
    </message>
    <message id="windowQueueEmpty">
        <source>Очередь отправки пуста</source>
        <translation>The outgoing queue is empty</translation>
    </message>
    <message id="windowQueueNeedsPerson">
        <source>требуют внимания: %1</source>
        <translation>needing attention: %1</translation>
    </message>
    <message id="windowQueueSending">
        <source>идёт отправка</source>
        <translation>being delivered</translation>
    </message>
    <message id="windowQueueUnreached">
        <source>сервер очереди недоступен</source>
        <translation>the queue's server cannot be reached</translation>
    </message>
    <message id="windowQueueUnusable">
        <source>Очередь отправки недоступна: %1</source>
        <translation>The outgoing queue cannot be used: %1</translation>
    </message>
    <message id="windowQueueWaiting" numerus="yes">
        <source>Ждут отправки %n сообщений, самое старое — %1</source>
        <translation>
            <numerusform>%n message waits to be sent, the oldest for %1</numerusform>
            <numerusform>%n messages wait to be sent, the oldest for %1</numerusform>
        </translation>
    </message>
    <message id="windowReturnOfSale">
        <source>Возврат № %1 по чеку № %2</source>
        <translation>Return %1 of cheque %2</translation>
    </message>
    <message id="windowReturnWithoutSale">
        <source>Возврат без чека, № %1</source>
        <translation>Return %1 without a sale</translation>
    </message>
    <message id="windowSale">
        <source>Продажа, чек № %1</source>
        <translation>Sale, cheque %1</translation>
    </message>
    <message id="windowServiceNotAsked">
        <source>Система лояльности: запросов ещё не было</source>
        <translation>Loyalty service: not asked yet</translation>
    </message>
    <message id="windowServiceOffline">
        <source>Система лояльности: нет связи с %1</source>
        <translation>Loyalty service: no connection since %1</translation>
    </message>
    <message id="windowServiceOnline">
        <source>Система лояльности: на связи</source>
        <translation>Loyalty service: connected</translation>
    </message>
    <message id="windowServicePage">
        <source>Страница сервиса</source>
        <translation>The service's page</translation>
    </message>
    <message id="windowServicePageNotOpened">
        <source>Не удалось открыть браузер. Страница сервиса: %1</source>
        <translation>No browser could be opened. The service's page: %1</translation>
    </message>
    <message id="windowStillMissing">
        <source>Останется доплатить: %1</source>
        <translation>Still to be paid: %1</translation>
    </message>
    <message id="windowStopped">
        <source>Система лояльности не разрешила операцию</source>
        <translation>The loyalty service does not allow this</translation>
    </message>
    <message id="windowTitle">
        <source>Касса</source>
        <translation>Till</translation>
    </message>
    <message id="windowToCustomer">
        <source>Покупателю: %1</source>
        <translation>To the customer: %1</translation>
    </message>
    <message id="windowTotal">
        <source>ИТОГО</source>
        <translation>TOTAL</translation>
    </message>
    <message id="windowYes">
        <source>Да</source>
        <translation>Yes</translation>
    </message>
</context>
</TS>
