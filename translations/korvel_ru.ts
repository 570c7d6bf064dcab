<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name></name>
    <message id="dialogChoiceCancel">
        <source>Отмена</source>
        <translation>Отмена</translation>
    </message>
    <message id="dialogChoiceOk">
        <source>ОК</source>
        <translation>ОК</translation>
    </message>
    <message id="documentNotSaved">
        <source>Не удалось сохранить документ: %1</source>
        <translation>Не удалось сохранить документ: %1</translation>
    </message>
    <message id="inputTextFormCancelBtn">
        <source>Отмена</source>
        <translation>Отмена</translation>
    </message>
    <message id="inputTextFormOkBtn">
        <source>ОК</source>
        <translation>ОК</translation>
    </message>
    <message id="inputTextFormScanError">
        <source>Ошибка разбора введенных данных, повторите сканирование</source>
        <translation>Ошибка разбора введенных данных, повторите сканирование</translation>
    </message>
    <message id="korvelCheckRegistrationError">
        <source>Доступных баллов недостаточно для оплаты.
Отмените оплату, вернитесь в формирование и повторите попытку списания бонусов</source>
        <translation>Доступных баллов недостаточно для оплаты.
Отмените оплату, вернитесь в формирование и повторите попытку списания бонусов</translation>
    </message>
    <message id="korvelForbiddenCardStatus%1">
        <source>Запрещенный статус карты '%1'</source>
        <translation>Запрещенный статус карты '%1'</translation>
    </message>
    <message id="korvelForbiddenCardStatus3">
        <source>Карта заблокирована</source>
        <translation>Карта заблокирована</translation>
    </message>
    <message id="korvelForbiddenCardStatus5">
        <source>Завершена</source>
        <translation>Завершена</translation>
    </message>
    <message id="korvelForbiddenCardStatus6">
        <source>Карта удалена</source>
        <translation>Карта удалена</translation>
    </message>
    <message id="korvelForbiddenCardStatus9">
        <source>Незарегистрированная карта</source>
        <translation>Незарегистрированная карта</translation>
    </message>
    <message id="korvelIncorrectVerificationCode">
        <source>Неверный код подтверждения</source>
        <translation>Неверный код подтверждения</translation>
    </message>
    <message id="korvelInsufficientBonusBalance">
        <source>Доступных баллов недостаточно для оплаты</source>
        <translation>Доступных баллов недостаточно для оплаты</translation>
    </message>
    <message id="korvelInterchangeStickers">
        <source>Использовать фишки?</source>
        <translation>Использовать фишки?</translation>
    </message>
    <message id="korvelNoConnection">
        <source>Нет связи с сервером. Возможные операции с баллами будут выполнены позднее</source>
        <translation>Нет связи с сервером. Возможные операции с баллами будут выполнены позднее</translation>
    </message>
    <message id="korvelOnlineForbidChangeQuantity">
        <source>Изменение количества для позиции с уценкой запрещено</source>
        <translation>Изменение количества для позиции с уценкой запрещено</translation>
    </message>
    <message id="korvelOnlineInternalError">
        <source>Нет связи с лояльностью</source>
        <translation>Нет связи с лояльностью</translation>
    </message>
    <message id="korvelOnlineInternalErrorBackCoupon">
        <source>Нет связи с лояльностью. Верните покупателю купоны: %1</source>
        <translation>Нет связи с лояльностью. Верните покупателю купоны: %1</translation>
    </message>
    <message id="korvelReturnCoupons">
        <source>Купоны неприменимы. Верните покупателю купоны:
%1</source>
        <translation>Купоны неприменимы. Верните покупателю купоны:
%1</translation>
    </message>
    <message id="korvelVerificationCodeCancelInput">
        <source>Ввод кода подтверждения отменен</source>
        <translation>Ввод кода подтверждения отменен</translation>
    </message>
    <message id="korvelVerificationCodeInputMessage">
        <source>Введите код подтверждения</source>
        <translation>Введите код подтверждения</translation>
    </message>
    <message id="korvelVerificationCodeInputTitle">
        <source>Подтверждение списания</source>
        <translation>Подтверждение списания</translation>
    </message>
    <message id="printTemplateMissing">
        <source>Не найден шаблон печати «%1» в папках: %2. Проверьте настройку TextPrinter:templates</source>
        <translation>Не найден шаблон печати «%1» в папках: %2. Проверьте настройку TextPrinter:templates</translation>
    </message>
    <message id="printTemplateWrong">
        <source>Ошибка в шаблоне печати «%1»: %2</source>
        <translation>Ошибка в шаблоне печати «%1»: %2</translation>
    </message>
    <message id="processLoyaltyMessage">
        <source>Обращение к системе лояльности</source>
        <translation>Обращение к системе лояльности</translation>
    </message>
    <message id="queueMessageNotKept">
        <source>Не удалось сохранить чек в очередь отправки: %1. Запишите номер чека и сообщите администратору</source>
        <translation>Не удалось сохранить чек в очередь отправки: %1. Запишите номер чека и сообщите администратору</translation>
    </message>
    <message id="queueSalvaged">
        <source>Из отложенной очереди %1 восстановлено сообщений: %2, не читаются: %3</source>
        <translation>Из отложенной очереди %1 восстановлено сообщений: %2, не читаются: %3</translation>
    </message>
    <message id="queueSetAside">
        <source>Очередь отправки повреждена (%1) и отложена в файл %2. Сообщите администратору</source>
        <translation>Очередь отправки повреждена (%1) и отложена в файл %2. Сообщите администратору</translation>
    </message>
    <message id="receiptNotPrinted">
        <source>Не удалось напечатать: %1</source>
        <translation>Не удалось напечатать: %1</translation>
    </message>
    <message id="requestIncorrectAnswer">
        <source>Некорректный ответ от сервера</source>
        <translation>Некорректный ответ от сервера</translation>
    </message>
    <message id="restClientAnswerCut">
        <source>Ответ сервера %1 получен не полностью</source>
        <translation>Ответ сервера %1 получен не полностью</translation>
    </message>
    <message id="restClientAnswerTooLarge">
        <source>Ответ сервера %1 слишком большой</source>
        <translation>Ответ сервера %1 слишком большой</translation>
    </message>
    <message id="restClientBadAddress">
        <source>Неверный адрес сервера в настройках</source>
        <translation>Неверный адрес сервера в настройках</translation>
    </message>
    <message id="restClientBreakerOpen">
        <source>Сервер %1 временно недоступен, повторите позже</source>
        <translation>Сервер %1 временно недоступен, повторите позже</translation>
    </message>
    <message id="restClientConnectionRefused">
        <source>Нет соединения с сервером %1</source>
        <translation>Нет соединения с сервером %1</translation>
    </message>
    <message id="restClientExchangeFailed">
        <source>Ошибка обмена с сервером %1</source>
        <translation>Ошибка обмена с сервером %1</translation>
    </message>
    <message id="restClientHttpStatus">
        <source>Сервер %1 ответил ошибкой %2</source>
        <translation>Сервер %1 ответил ошибкой %2</translation>
    </message>
    <message id="restClientNameNotResolved">
        <source>Сервер %1 не найден</source>
        <translation>Сервер %1 не найден</translation>
    </message>
    <message id="restClientTimedOut">
        <source>Сервер %1 не ответил за %2 с</source>
        <translation>Сервер %1 не ответил за %2 с</translation>
    </message>
    <message id="restClientTlsFailed">
        <source>Не удалось установить защищённое соединение с сервером %1</source>
        <translation>Не удалось установить защищённое соединение с сервером %1</translation>
    </message>
    <message id="tillChequeQueued">
        <source>Чек уже в очереди отправки и будет зарегистрирован. Закройте чек и оформите возврат</source>
        <translation>Чек уже в очереди отправки и будет зарегистрирован. Закройте чек и оформите возврат</translation>
    </message>
    <message id="tillDelivered">
        <source>Отправка очереди: доставлено %1, отклонено %2, ждут %3</source>
        <translation>Отправка очереди: доставлено %1, отклонено %2, ждут %3</translation>
    </message>
    <message id="tillDeliveryBusy">
        <source>Очередь уже отправляет другая программа</source>
        <translation>Очередь уже отправляет другая программа</translation>
    </message>
    <message id="tillDeliveryParked">
        <source>Отложено до решения администратора: %1, см. korvel-till queue list</source>
        <translation>Отложено до решения администратора: %1, см. korvel-till queue list</translation>
    </message>
    <message id="tillDeliveryUnauthorised">
        <source>Система лояльности не принимает пароль, с которым сохранены чеки. Исправьте пароль в настройках и выполните korvel-till queue reauthorise</source>
        <translation>Система лояльности не принимает пароль, с которым сохранены чеки. Исправьте пароль в настройках и выполните korvel-till queue reauthorise</translation>
    </message>
    <message id="tillMessageDelivered">
        <source>доставлено</source>
        <translation>доставлено</translation>
    </message>
    <message id="tillMessageMissing">
        <source>нет в очереди</source>
        <translation>нет в очереди</translation>
    </message>
    <message id="tillMessageMoved">
        <source>перенесено в файл %1</source>
        <translation>перенесено в файл %1</translation>
    </message>
    <message id="tillMessageParked">
        <source>отложено до решения администратора</source>
        <translation>отложено до решения администратора</translation>
    </message>
    <message id="tillMessagePending">
        <source>ждёт отправки</source>
        <translation>ждёт отправки</translation>
    </message>
    <message id="tillMessageRefused">
        <source>отклонено</source>
        <translation>отклонено</translation>
    </message>
    <message id="tillMessageSending">
        <source>отправляется</source>
        <translation>отправляется</translation>
    </message>
    <message id="tillMessageWithoutError">
        <source>нет</source>
        <translation>нет</translation>
    </message>
    <message id="tillPluginFailed">
        <source>Непредвиденная ошибка подключаемого модуля</source>
        <translation>Непредвиденная ошибка подключаемого модуля</translation>
    </message>
    <message id="tillPointsNotOffered">
        <source>Оплата баллами недоступна: нет доступных баллов</source>
        <translation>Оплата баллами недоступна: нет доступных баллов</translation>
    </message>
    <message id="tillQueueFailed">
        <source>Очередь сообщений недоступна, подробности в журнале программы</source>
        <translation>Очередь сообщений недоступна, подробности в журнале программы</translation>
    </message>
    <message id="tillRegistrationUnknown">
        <source>Чек, возможно, уже зарегистрирован в системе лояльности, а связи с ней нет. Закройте чек и оформите возврат</source>
        <translation>Чек, возможно, уже зарегистрирован в системе лояльности, а связи с ней нет. Закройте чек и оформите возврат</translation>
    </message>
    <message id="tillReturnUnknown">
        <source>Возврат, возможно, уже проведён в системе лояльности. Закройте его</source>
        <translation>Возврат, возможно, уже проведён в системе лояльности. Закройте его</translation>
    </message>
    <message id="tillShiftOpenDocument">
        <source>Открыт документ %1</source>
        <translation>Открыт документ %1</translation>
    </message>
    <message id="tillShiftPoints">
        <source>Баллы: начислено %1, списано %2</source>
        <translation>Баллы: начислено %1, списано %2</translation>
    </message>
    <message id="tillShiftReturns">
        <source>Возвраты: %1, сумма %2</source>
        <translation>Возвраты: %1, сумма %2</translation>
    </message>
    <message id="tillShiftSales">
        <source>Продажи: %1, сумма %2</source>
        <translation>Продажи: %1, сумма %2</translation>
    </message>
    <message id="tillShiftUnconfirmedReturn">
        <source>Не подтверждён возврат %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</source>
        <translation>Не подтверждён возврат %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</translation>
    </message>
    <message id="tillShiftUnconfirmedSale">
        <source>Не подтверждена продажа %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</source>
        <translation>Не подтверждена продажа %1 от %2: сумма %3, баллы: начислено %4, списано %5, сообщение: %6, ошибка: %7</translation>
    </message>
    <message id="tillShiftWaiting">
        <source>Ждут отправки: %1</source>
        <translation>Ждут отправки: %1</translation>
    </message>
    <message id="tillTooManyPoints">
        <source>Нельзя оплатить баллами %1: доступно баллов %2, сумма чека %3</source>
        <translation>Нельзя оплатить баллами %1: доступно баллов %2, сумма чека %3</translation>
    </message>
    <message id="tillWaiting">
        <source>Ждут отправки: %1</source>
        <translation>Ждут отправки: %1</translation>
    </message>
    <message id="windowAgeInDays">
        <source>%1 д %2 ч</source>
        <translation>%1 д %2 ч</translation>
    </message>
    <message id="windowAgeInHours">
        <source>%1 ч %2 мин</source>
        <translation>%1 ч %2 мин</translation>
    </message>
    <message id="windowAgeInMinutes">
        <source>%1 мин</source>
        <translation>%1 мин</translation>
    </message>
    <message id="windowAgeInSeconds">
        <source>%1 с</source>
        <translation>%1 с</translation>
    </message>
    <message id="windowAnswerFirst">
        <source>Скан не принят: сначала ответьте на вопрос</source>
        <translation>Скан не принят: сначала ответьте на вопрос</translation>
    </message>
    <message id="windowAskCancel">
        <source>Отменить открытый документ?</source>
        <translation>Отменить открытый документ?</translation>
    </message>
    <message id="windowAskCard">
        <source>Номер карты</source>
        <translation>Номер карты</translation>
    </message>
    <message id="windowAskCoupon">
        <source>Номер купона</source>
        <translation>Номер купона</translation>
    </message>
    <message id="windowAskEndShift">
        <source>Завершить смену?</source>
        <translation>Завершить смену?</translation>
    </message>
    <message id="windowAskPoints">
        <source>Сколько баллов списать; пусто — сколько можно</source>
        <translation>Сколько баллов списать; пусто — сколько можно</translation>
    </message>
    <message id="windowAskQuantity">
        <source>Количество</source>
        <translation>Количество</translation>
    </message>
    <message id="windowAskReturn">
        <source>Номер чека продажи; пусто — возврат без чека</source>
        <translation>Номер чека продажи; пусто — возврат без чека</translation>
    </message>
    <message id="windowBack">
        <source>К продаже</source>
        <translation>К продаже</translation>
    </message>
    <message id="windowBusy">
        <source>Обращение к системе лояльности</source>
        <translation>Обращение к системе лояльности</translation>
    </message>
    <message id="windowBusySeconds">
        <source>%1 с</source>
        <translation>%1 с</translation>
    </message>
    <message id="windowCancel">
        <source>Отмена</source>
        <translation>Отмена</translation>
    </message>
    <message id="windowCardAccepted">
        <source>карта принята</source>
        <translation>карта принята</translation>
    </message>
    <message id="windowCardMissing">
        <source>карта не предъявлена</source>
        <translation>карта не предъявлена</translation>
    </message>
    <message id="windowCardOfSale">
        <source>карта из чека продажи</source>
        <translation>карта из чека продажи</translation>
    </message>
    <message id="windowCardPaysNoMore">
        <source>Картой можно оплатить не больше %1</source>
        <translation>Картой можно оплатить не больше %1</translation>
    </message>
    <message id="windowCardRefused">
        <source>карта %1 не принята: %2</source>
        <translation>карта %1 не принята: %2</translation>
    </message>
    <message id="windowCardRegistered">
        <source>чек зарегистрирован</source>
        <translation>чек зарегистрирован</translation>
    </message>
    <message id="windowChange">
        <source>Сдача: %1</source>
        <translation>Сдача: %1</translation>
    </message>
    <message id="windowColumnCode">
        <source>Артикул</source>
        <translation>Артикул</translation>
    </message>
    <message id="windowColumnDiscount">
        <source>Скидка</source>
        <translation>Скидка</translation>
    </message>
    <message id="windowColumnName">
        <source>Наименование</source>
        <translation>Наименование</translation>
    </message>
    <message id="windowColumnNumber">
        <source>№</source>
        <translation>№</translation>
    </message>
    <message id="windowColumnPoints">
        <source>Баллы</source>
        <translation>Баллы</translation>
    </message>
    <message id="windowColumnPrice">
        <source>Цена</source>
        <translation>Цена</translation>
    </message>
    <message id="windowColumnQuantity">
        <source>Кол-во</source>
        <translation>Кол-во</translation>
    </message>
    <message id="windowColumnSum">
        <source>Сумма</source>
        <translation>Сумма</translation>
    </message>
    <message id="windowCopied">
        <source>Скопировано, номера карт скрыты</source>
        <translation>Скопировано, номера карт скрыты</translation>
    </message>
    <message id="windowCopy">
        <source>Копировать</source>
        <translation>Копировать</translation>
    </message>
    <message id="windowCorrection">
        <source>Коррекция № %1</source>
        <translation>Коррекция № %1</translation>
    </message>
    <message id="windowCoupons">
        <source>Купоны</source>
        <translation>Купоны</translation>
    </message>
    <message id="windowCustomer">
        <source>Покупатель</source>
        <translation>Покупатель</translation>
    </message>
    <message id="windowCustomerAvailable">
        <source>Доступно</source>
        <translation>Доступно</translation>
    </message>
    <message id="windowCustomerBalance">
        <source>Баланс</source>
        <translation>Баланс</translation>
    </message>
    <message id="windowCustomerCard">
        <source>Карта</source>
        <translation>Карта</translation>
    </message>
    <message id="windowCustomerChosen">
        <source>Списывается</source>
        <translation>Списывается</translation>
    </message>
    <message id="windowCustomerEarned">
        <source>Начисляется</source>
        <translation>Начисляется</translation>
    </message>
    <message id="windowCustomerStatus">
        <source>Состояние</source>
        <translation>Состояние</translation>
    </message>
    <message id="windowCustomerType">
        <source>Тип карты</source>
        <translation>Тип карты</translation>
    </message>
    <message id="windowDemoBand">
        <source>Демонстрация. Товары 1001–1010, карта 2900000000017, код подтверждения 4829. Сервис: %1</source>
        <translation>Демонстрация. Товары 1001–1010, карта 2900000000017, код подтверждения 4829. Сервис: %1</translation>
    </message>
    <message id="windowDemoDecline">
        <source>Выйти</source>
        <translation>Выйти</translation>
    </message>
    <message id="windowDemoOffer">
        <source>Настройки не найдены: не указан --config, и в текущей папке нет till.ini.

Запустить демонстрацию? На этом компьютере запустится сервис лояльности с примерами карт и товаров. Всё, что продано в демонстрации, забывается, когда окно закрывается.</source>
        <translation>Настройки не найдены: не указан --config, и в текущей папке нет till.ini.

Запустить демонстрацию? На этом компьютере запустится сервис лояльности с примерами карт и товаров. Всё, что продано в демонстрации, забывается, когда окно закрывается.</translation>
    </message>
    <message id="windowDemoStart">
        <source>Запустить демонстрацию</source>
        <translation>Запустить демонстрацию</translation>
    </message>
    <message id="windowDemoStarting">
        <source>Запускается сервис лояльности…</source>
        <translation>Запускается сервис лояльности…</translation>
    </message>
    <message id="windowEmptyDesk">
        <source>Касса свободна</source>
        <translation>Касса свободна</translation>
    </message>
    <message id="windowExchangeAnswer">
        <source>Ответ</source>
        <translation>Ответ</translation>
    </message>
    <message id="windowExchangeBalance">
        <source>Баланс</source>
        <translation>Баланс</translation>
    </message>
    <message id="windowExchangeCalculation">
        <source>Расчёт</source>
        <translation>Расчёт</translation>
    </message>
    <message id="windowExchangeDone">
        <source>%1 · успешно</source>
        <translation>%1 · успешно</translation>
    </message>
    <message id="windowExchangeFailed">
        <source>нет ответа (%1): %2</source>
        <translation>нет ответа (%1): %2</translation>
    </message>
    <message id="windowExchangeMilliseconds">
        <source>%1 мс</source>
        <translation>%1 мс</translation>
    </message>
    <message id="windowExchangeOperation">
        <source>Операция</source>
        <translation>Операция</translation>
    </message>
    <message id="windowExchangeOther">
        <source>Другое</source>
        <translation>Другое</translation>
    </message>
    <message id="windowExchangeOutcome">
        <source>Результат</source>
        <translation>Результат</translation>
    </message>
    <message id="windowExchangeRegistration">
        <source>Регистрация</source>
        <translation>Регистрация</translation>
    </message>
    <message id="windowExchangeRequest">
        <source>Запрос</source>
        <translation>Запрос</translation>
    </message>
    <message id="windowExchangeReturn">
        <source>Возврат</source>
        <translation>Возврат</translation>
    </message>
    <message id="windowExchangeRollback">
        <source>Отмена</source>
        <translation>Отмена</translation>
    </message>
    <message id="windowExchangeTime">
        <source>Время</source>
        <translation>Время</translation>
    </message>
    <message id="windowExchanges">
        <source>Обмены</source>
        <translation>Обмены</translation>
    </message>
    <message id="windowFunctionCancel">
        <source>Отменить чек</source>
        <translation>Отменить чек</translation>
    </message>
    <message id="windowFunctionCard">
        <source>Карта</source>
        <translation>Карта</translation>
    </message>
    <message id="windowFunctionClose">
        <source>Закрыть чек</source>
        <translation>Закрыть чек</translation>
    </message>
    <message id="windowFunctionCoupon">
        <source>Купон</source>
        <translation>Купон</translation>
    </message>
    <message id="windowFunctionEndShift">
        <source>Конец смены</source>
        <translation>Конец смены</translation>
    </message>
    <message id="windowFunctionMessagesRead">
        <source>Прочитано</source>
        <translation>Прочитано</translation>
    </message>
    <message id="windowFunctionPoints">
        <source>Баллы</source>
        <translation>Баллы</translation>
    </message>
    <message id="windowFunctionQuantity">
        <source>Количество</source>
        <translation>Количество</translation>
    </message>
    <message id="windowFunctionRemove">
        <source>Сторно</source>
        <translation>Сторно</translation>
    </message>
    <message id="windowFunctionReturn">
        <source>Возврат</source>
        <translation>Возврат</translation>
    </message>
    <message id="windowFunctionSale">
        <source>Продажа</source>
        <translation>Продажа</translation>
    </message>
    <message id="windowFunctionTotal">
        <source>Итог</source>
        <translation>Итог</translation>
    </message>
    <message id="windowGivenHint">
        <source>Получено; пусто — без сдачи</source>
        <translation>Получено; пусто — без сдачи</translation>
    </message>
    <message id="windowInputHint">
        <source>Товар, карта, купон</source>
        <translation>Товар, карта, купон</translation>
    </message>
    <message id="windowLineNotEmpty">
        <source>Сначала введите или сотрите набранное: %1</source>
        <translation>Сначала введите или сотрите набранное: %1</translation>
    </message>
    <message id="windowNo">
        <source>Нет</source>
        <translation>Нет</translation>
    </message>
    <message id="windowNoExchanges">
        <source>Обменов с системой лояльности ещё не было</source>
        <translation>Обменов с системой лояльности ещё не было</translation>
    </message>
    <message id="windowNoPositionChosen">
        <source>Выберите позицию чека</source>
        <translation>Выберите позицию чека</translation>
    </message>
    <message id="windowNotACode">
        <source>Введите номер без пробелов</source>
        <translation>Введите номер без пробелов</translation>
    </message>
    <message id="windowNotANumber">
        <source>Введите число, например 2 или 1,5</source>
        <translation>Введите число, например 2 или 1,5</translation>
    </message>
    <message id="windowNotASum">
        <source>Введите сумму, например 500 или 99,50</source>
        <translation>Введите сумму, например 500 или 99,50</translation>
    </message>
    <message id="windowOfflineSign">
        <source>НЕТ СВЯЗИ С СИСТЕМОЙ ЛОЯЛЬНОСТИ. Продавать можно: чеки ждут отправки. Скидки, оплата баллами и купоны могут быть недоступны</source>
        <translation>НЕТ СВЯЗИ С СИСТЕМОЙ ЛОЯЛЬНОСТИ. Продавать можно: чеки ждут отправки. Скидки, оплата баллами и купоны могут быть недоступны</translation>
    </message>
    <message id="windowOk">
        <source>ОК</source>
        <translation>ОК</translation>
    </message>
    <message id="windowPaper">
        <source>Напечатано</source>
        <translation>Напечатано</translation>
    </message>
    <message id="windowPayCard">
        <source>Картой</source>
        <translation>Картой</translation>
    </message>
    <message id="windowPayCash">
        <source>Наличными</source>
        <translation>Наличными</translation>
    </message>
    <message id="windowPayment">
        <source>К оплате</source>
        <translation>К оплате</translation>
    </message>
    <message id="windowPreview">
        <source>Так напечатается чек</source>
        <translation>Так напечатается чек</translation>
    </message>
    <message id="windowQueueEmpty">
        <source>Очередь отправки пуста</source>
        <translation>Очередь отправки пуста</translation>
    </message>
    <message id="windowQueueNeedsPerson">
        <source>требуют внимания: %1</source>
        <translation>требуют внимания: %1</translation>
    </message>
    <message id="windowQueueSending">
        <source>идёт отправка</source>
        <translation>идёт отправка</translation>
    </message>
    <message id="windowQueueUnreached">
        <source>сервер очереди недоступен</source>
        <translation>сервер очереди недоступен</translation>
    </message>
    <message id="windowQueueUnusable">
        <source>Очередь отправки недоступна: %1</source>
        <translation>Очередь отправки недоступна: %1</translation>
    </message>
    <message id="windowQueueWaiting" numerus="yes">
        <source>Ждут отправки %n сообщений, самое старое — %1</source>
        <translation>
            <numerusform>Ждёт отправки %n сообщение, самое старое — %1</numerusform>
            <numerusform>Ждут отправки %n сообщения, самое старое — %1</numerusform>
            <numerusform>Ждут отправки %n сообщений, самое старое — %1</numerusform>
        </translation>
    </message>
    <message id="windowReturnOfSale">
        <source>Возврат № %1 по чеку № %2</source>
        <translation>Возврат № %1 по чеку № %2</translation>
    </message>
    <message id="windowReturnWithoutSale">
        <source>Возврат без чека, № %1</source>
        <translation>Возврат без чека, № %1</translation>
    </message>
    <message id="windowSale">
        <source>Продажа, чек № %1</source>
        <translation>Продажа, чек № %1</translation>
    </message>
    <message id="windowServiceNotAsked">
        <source>Система лояльности: запросов ещё не было</source>
        <translation>Система лояльности: запросов ещё не было</translation>
    </message>
    <message id="windowServiceOffline">
        <source>Система лояльности: нет связи с %1</source>
        <translation>Система лояльности: нет связи с %1</translation>
    </message>
    <message id="windowServiceOnline">
        <source>Система лояльности: на связи</source>
        <translation>Система лояльности: на связи</translation>
    </message>
    <message id="windowServicePage">
        <source>Страница сервиса</source>
        <translation>Страница сервиса</translation>
    </message>
    <message id="windowServicePageNotOpened">
        <source>Не удалось открыть браузер. Страница сервиса: %1</source>
        <translation>Не удалось открыть браузер. Страница сервиса: %1</translation>
    </message>
    <message id="windowStillMissing">
        <source>Останется доплатить: %1</source>
        <translation>Останется доплатить: %1</translation>
    </message>
    <message id="windowStopped">
        <source>Система лояльности не разрешила операцию</source>
        <translation>Система лояльности не разрешила операцию</translation>
    </message>
    <message id="windowTitle">
        <source>Касса</source>
        <translation>Касса</translation>
    </message>
    <message id="windowToCustomer">
        <source>Покупателю: %1</source>
        <translation>Покупателю: %1</translation>
    </message>
    <message id="windowTotal">
        <source>ИТОГО</source>
        <translation>ИТОГО</translation>
    </message>
    <message id="windowYes">
        <source>Да</source>
        <translation>Да</translation>
    </message>
</context>
</TS>
