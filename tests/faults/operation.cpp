#include "tests/faults/operation.h"

using namespace Qt::StringLiterals;

namespace faults {

QString titleOf(Operation operation)
{
    switch (operation) {
    case Operation::Card:
        return u"card"_s;
    case Operation::Calculation:
        return u"calculation"_s;
    case Operation::Points:
        return u"points"_s;
    case Operation::Registration:
        return u"registration"_s;
    case Operation::Return:
        return u"return"_s;
    case Operation::Rollback:
        return u"rollback"_s;
    case Operation::Delivery:
        return u"delivery"_s;
    case Operation::Saving:
        return u"saving"_s;
    case Operation::Restoring:
        break;
    }
    return u"restoring"_s;
}

bool asksService(Operation operation)
{
    return operation != Operation::Saving && operation != Operation::Restoring;
}

} // namespace faults
