#include "emulator/data/operations.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

const QStringList &operationNames()
{
    static const QStringList names
        = {u"balance"_s, u"soft"_s, u"fiscal"_s, u"return"_s, u"rollback"_s};
    return names;
}

QString operationName(Operation operation)
{
    return operationNames().at(static_cast<qsizetype>(operation));
}

} // namespace emulator
