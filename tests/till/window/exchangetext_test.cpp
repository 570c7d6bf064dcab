// Exchanges as people read them.

#include "tests/support/printers.h"
#include "till/window/exchangetext.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace text = till::exchangetext;

namespace {

QByteArray sample(const QString &name)
{
    QFile file(QStringLiteral(PROTOCOL_SAMPLES "/") + name + u".xml"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

till::ExchangeRecord exchange(const QByteArray &request, const QByteArray &answer)
{
    till::ExchangeRecord record;
    record.begun = QDateTime(QDate(2026, 3, 1), QTime(12, 5, 7, 89));
    record.duration = std::chrono::milliseconds(42);
    record.request = request;
    record.answer = answer;
    return record;
}

TEST(ExchangeTextTest, NamesTheOperation)
{
    struct Row
    {
        const char *sample;
        QString name;
    };
    for (const Row &row : {Row{"balance-request", u"Баланс"_s},
             Row{"sale-soft-request", u"Расчёт"_s}, Row{"sale-points-request", u"Расчёт"_s},
             Row{"sale-fiscal-request", u"Регистрация"_s}, Row{"return-request", u"Возврат"_s},
             Row{"rollback-request", u"Отмена"_s}, Row{"fault", u"Другое"_s}}) {
        SCOPED_TRACE(row.sample);
        EXPECT_EQ(text::operation(exchange(sample(QString::fromLatin1(row.sample)), {})), row.name);
    }
}

TEST(ExchangeTextTest, TellsWhatTheServiceAnswered)
{
    const auto done = exchange({}, sample(u"sale-answer"_s));
    EXPECT_TRUE(text::hasSucceeded(done));
    EXPECT_EQ(text::outcome(done), u"0 · успешно");
    const auto refused = exchange({}, sample(u"refusal-answer"_s));
    EXPECT_FALSE(text::hasSucceeded(refused));
    EXPECT_EQ(text::outcome(refused), u"80241 · Карта не найдена");
}

TEST(ExchangeTextTest, TellsOfAnAnswerThatIsNotTheServices)
{
    for (const QByteArray &answer : {QByteArray("<html>Welcome</html>"), QByteArray("Welcome"),
             QByteArray(), sample(u"sale-fiscal-request"_s)}) {
        SCOPED_TRACE(answer.toStdString());
        EXPECT_FALSE(text::hasSucceeded(exchange({}, answer)));
        EXPECT_EQ(text::outcome(exchange({}, answer)), u"не ответ системы лояльности");
    }
}

TEST(ExchangeTextTest, TellsWhyThereIsNoAnswer)
{
    auto failed = exchange({}, {});
    failed.error = 2;
    failed.errorMessage = tr::Tr(u"any"_s, u"Сервер не отвечает"_s);
    EXPECT_FALSE(text::hasSucceeded(failed));
    EXPECT_EQ(text::outcome(failed), u"нет ответа (2): Сервер не отвечает");
}

TEST(ExchangeTextTest, TimesAreExact)
{
    EXPECT_EQ(text::begun(exchange({}, {})), u"1 Mar 2026 12:05:07.089");
    EXPECT_EQ(text::duration(exchange({}, {})), u"42 мс");
}

TEST(ExchangeTextTest, XmlIsIndentedWithItsPrefixesAndAttributes)
{
    EXPECT_EQ(
        text::shown("<?xml version='1.0'?><s:a xmlns:s=\"u\"><b c=\"1\">x &amp; y</b>\n</s:a>"),
        u"<s:a xmlns:s=\"u\">\n  <b c=\"1\">x &amp; y</b>\n</s:a>");
}

TEST(ExchangeTextTest, WhatIsNoXmlStandsAsItCame)
{
    for (const QByteArray &body : {QByteArray("half <a><b>"), QByteArray("<a><b></a>"),
             QByteArray("<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>"),
             QByteArray(QByteArray("<a>").repeated(101) + QByteArray("</a>").repeated(101))})
        EXPECT_EQ(text::shown(body), QString::fromUtf8(body));
}

TEST(ExchangeTextTest, TheVerificationCodeIsNeverShown)
{
    const QString shown = text::shown(
        "<a><VerificationCode>4829</VerificationCode><CardNumber>2900000000017</CardNumber></a>");
    EXPECT_FALSE(shown.contains(u"4829"));
    EXPECT_TRUE(shown.contains(u"2900000000017"));
    EXPECT_FALSE(text::shown("cut <VerificationCode>4829").contains(u"4829"));
}

TEST(ExchangeTextTest, WhatIsCopiedHasNoCardNumbersEither)
{
    auto record = exchange("<a><CardNumber>2900000000017</CardNumber></a>",
        "<a><ReturnCode>80241</ReturnCode><Message>Карта 2900000000017</Message></a>");
    const QString copied = text::forClipboard(record);
    EXPECT_FALSE(copied.contains(u"2900000000017")) << qPrintable(copied);
    EXPECT_TRUE(copied.contains(u"<CardNumber>*********0017</CardNumber>"));
    EXPECT_TRUE(copied.startsWith(u"1 Mar 2026 12:05:07.089 · 42 мс · "));
    EXPECT_TRUE(copied.contains(u"80241"));
}

} // namespace
