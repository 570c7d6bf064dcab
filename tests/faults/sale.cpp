#include "tests/faults/sale.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

const QString presentCard = u"card 2900000000017"_s;
const QString addCoffee = u"add 1004"_s;
const QString payPoints = u"points 60"_s;

// A message that is not delivered by then never will be.
constexpr int greatestDeliveries = 5;

void mustAll(Stage &stage, std::initializer_list<QString> commands)
{
    for (const QString &command : commands)
        stage.must(command);
}

// Only a cheque that was registered and is not closed has something to take back. The till is
// killed while it registers; the next one asks again before it cancels, and is then not answered.
void comeToRollback(Stage &stage)
{
    mustAll(stage, {presentCard, addCoffee, u"total"_s, payPoints});
    stage.killedIn(u"close"_s);
    stage.startTill();
    stage.front().strike(Kind::ClosedAfterReading, 1);
    stage.must(u"cancel"_s);
    stage.heal();
}

void comeToDelivery(Stage &stage)
{
    mustAll(stage, {presentCard, addCoffee, u"total"_s, payPoints});
    stage.front().strike(Kind::ClosedBeforeReading);
    stage.must(u"close"_s);
    stage.heal();
}

} // namespace

void sellUpTo(Operation operation, Stage &stage, bool isOpeningStruck)
{
    stage.startTill();
    switch (operation) {
    case Operation::Card:
        stage.must(u"sale"_s);
        return;
    case Operation::Calculation:
    case Operation::Saving:
        return mustAll(stage, {presentCard, addCoffee});
    case Operation::Points:
        return mustAll(stage, {presentCard, addCoffee, u"total"_s});
    case Operation::Registration:
        return mustAll(stage, {presentCard, addCoffee, u"total"_s, payPoints});
    case Operation::Return:
        mustAll(stage, {presentCard, addCoffee, u"total"_s, payPoints, u"close"_s});
        if (!isOpeningStruck)
            stage.must(u"return 1"_s);
        return;
    case Operation::Rollback:
        return comeToRollback(stage);
    case Operation::Delivery:
        return comeToDelivery(stage);
    case Operation::Restoring:
        mustAll(stage, {presentCard, addCoffee, u"total"_s, payPoints});
        stage.endTill();
        return;
    }
}

QString commandOf(Operation operation, bool isOpeningStruck)
{
    switch (operation) {
    case Operation::Card:
        return presentCard;
    case Operation::Calculation:
        return u"total"_s;
    case Operation::Points:
        return payPoints;
    case Operation::Registration:
        return u"close"_s;
    case Operation::Return:
        return isOpeningStruck ? u"return 1"_s : u"close"_s;
    case Operation::Rollback:
        return u"cancel"_s;
    case Operation::Delivery:
        return u"deliver"_s;
    case Operation::Saving:
        return u"add 1005"_s;
    case Operation::Restoring:
        break;
    }
    return u"show"_s;
}

QString fileOf(Operation operation)
{
    switch (operation) {
    case Operation::Return:
        return u"closed/1.json"_s;
    case Operation::Delivery:
        return u"queue/queue.sqlite"_s;
    case Operation::Restoring:
        return u"document.json"_s;
    default:
        return {};
    }
}

void bringToItsEnd(Stage &stage)
{
    if (const Json document = stage.openDocument();
        !document.is_null() && document.at("positions").empty())
        stage.must(addCoffee);
    for (const QString &command : {u"close"_s, u"total"_s, u"close"_s, u"cancel"_s})
        if (!stage.openDocument().is_null())
            stage.must(command);
    for (int pass = 0; pass < greatestDeliveries && !stage.undelivered().isEmpty(); ++pass)
        stage.must(u"deliver"_s);
    stage.endTill();
}

} // namespace faults
