#pragma once

#include "emulator/books/audit.h"
#include "emulator/desk/desk.h"
#include "emulator/desk/returncodes.h"
#include "emulator/soap/answerwriter.h"
#include "emulator/soap/schema.h"
#include "tests/emulator/support/requests.h"
#include "tests/emulator/support/tabletext.h"

#include <QRegularExpression>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace emulator {

/// A desk with books in memory, a card with 500 points and a clock that stands still. Rules are
/// set on `data` before the first request. Every test ends with the books in order.
class DeskTest : public testing::Test
{
protected:
    DeskTest()
    {
        data.servedStatuses = {2};
        givenCard(testCard, "500.00");
        data.earning.percent = Percent::ofHundredths(500);
        data.spending.share = Percent::ofHundredths(5000);
    }

    void TearDown() override { EXPECT_THAT(audit(desk().books()).problems, testing::IsEmpty()); }

    void givenCard(const char *number, const char *balance, int status = 2)
    {
        CardData card;
        card.number = QString::fromLatin1(number);
        card.status = status;
        card.openingBalance = amount(balance);
        data.cards.push_back(card);
    }

    Desk &desk()
    {
        if (!m_desk)
            m_desk = std::make_unique<Desk>(data, m_database, [this] { return now; });
        return *m_desk;
    }

    ChequeAnswer whenAnswered(const Request &request)
    {
        const Answer answer = desk().answer(request);
        thenFitsTheSchema(answer);
        return std::get<ChequeAnswer>(answer);
    }

    static void thenFitsTheSchema(const Answer &answer)
    {
        static const MessageSchema schema;
        const QByteArray xml = writeAnswer(answer);
        EXPECT_EQ(schema.complaintAbout(XmlDocument::parse(xml)), QString()) << xml.constData();
    }

    ChequeFigures whenAccepted(const Request &request)
    {
        const ChequeAnswer answer = whenAnswered(request);
        EXPECT_EQ(answer.outcome.code, returncodes::success) << qPrintable(answer.outcome.message);
        return answer.figures.value_or(ChequeFigures());
    }

    QByteArray whenRepeated(const Request &request)
    {
        const Answer answer = desk().answer(request);
        const RepeatedAnswer *repeated = std::get_if<RepeatedAnswer>(&answer);
        EXPECT_TRUE(repeated) << "the request was not taken for a repeat";
        return repeated ? repeated->xml : QByteArray();
    }

    void thenRefused(const Request &request, int code)
    {
        const ChequeAnswer answer = whenAnswered(request);
        EXPECT_EQ(answer.outcome.code, code);
        EXPECT_FALSE(answer.outcome.message.isEmpty());
    }

    void thenBalanceIs(const char *balance, const char *card = testCard)
    {
        const QString number = QString::fromLatin1(card);
        EXPECT_EQ(desk().books().ledger.balance(number, Account::Active), amount(balance));
    }

    std::size_t transactionCount() { return desk().books().transactions.latest(1000).size(); }

    /// Every row of every table, but for the notes on what was last answered, which are no books.
    QStringList booksAsText()
    {
        desk();
        return tablesAsText(m_database, {QStringLiteral("calculations")});
    }

    Database &database() { return m_database; }

    ServiceData data;
    QDateTime now{QDate(2024, 3, 5), QTime(14, 0), Qt::UTC};

private:
    Database m_database{QString()};
    std::unique_ptr<Desk> m_desk;
};

} // namespace emulator
