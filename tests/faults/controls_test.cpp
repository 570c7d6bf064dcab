// Wrongs that the laws must find; a table that they pass would say nothing.

#include "tests/faults/celllaws.h"
#include "tests/faults/front.h"
#include "tests/faults/table.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace faults {

namespace {

std::string found(const Cell &cell, const Control &control = {})
{
    return wrongIn(cell, control).join(u'\n').toStdString();
}

const Cell &unanswered(Operation operation)
{
    return cellOf(Kind::ClosedAfterReading, operation);
}

TEST(FaultControlsTest, NothingIsFoundWithoutAFault)
{
    for (const Operation operation : allOperations)
        EXPECT_EQ(
            found({{Kind::None, Group::Network, u"no fault"_s}, operation, Outcome::Done}), "")
            << titleOf(operation).toStdString();
}

TEST(FaultControlsTest, ATillThatAsksTwiceIsFound)
{
    Control control;
    control.spoil = QString::fromLatin1(spoilRetry);
    EXPECT_THAT(found(unanswered(Operation::Card), control), HasSubstr("requests on the wire"));
    EXPECT_THAT(
        found(unanswered(Operation::Registration), control), HasSubstr("requests on the wire"));
}

TEST(FaultControlsTest, ATillThatWaitsTooLongIsFound)
{
    Control control;
    control.spoil = QString::fromLatin1(spoilPatience);
    EXPECT_THAT(found(unanswered(Operation::Card), control), HasSubstr("an exchange took"));
}

TEST(FaultControlsTest, AQueueThatWasThrownAwayIsFound)
{
    Control control;
    control.isQueueThrownAway = true;
    EXPECT_THAT(
        found(unanswered(Operation::Registration), control), HasSubstr("is booked 0 times"));
    EXPECT_THAT(found(unanswered(Operation::Return), control), HasSubstr("is booked 0 times"));
}

TEST(FaultControlsTest, AnotherOutcomeThanTheTablesIsFound)
{
    Cell cell = unanswered(Operation::Calculation);
    cell.expected = Outcome::Refused;
    EXPECT_THAT(found(cell), HasSubstr("offline instead of refused"));
}

TEST(FaultControlsTest, AFaultThatDidNotStrikeIsFound)
{
    Cell cell = cellOf(Kind::TwiceAnnounced, Operation::Saving);
    cell.expected = Outcome::Done;
    EXPECT_THAT(found(cell), HasSubstr("asks nothing instead of done"));
}

// Why the till does not use it: it asks again by itself when nobody answers.
TEST(FaultControlsTest, AClientThatSendsARequestTwiceByItselfIsFound)
{
    const restart::Socket nobody = restart::Socket::onFreePort();
    Front front(nobody.port(), nullptr);
    front.strike(Kind::ClosedAfterReading);
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(u"http://127.0.0.1:%1/"_s.arg(front.port())));
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"text/xml"_s);
    const std::unique_ptr<QNetworkReply> reply(manager.post(request, QByteArray("<x/>")));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    EXPECT_THAT(laws::oneRequestEach(1, front.requests()).join(u'\n').toStdString(),
        HasSubstr("2 requests on the wire in 1 exchanges"));
}

} // namespace

} // namespace faults
