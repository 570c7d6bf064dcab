#pragma once

#include "emulator/soap/request.h"

#include <QVariantList>

namespace emulator {

/// What tells one cheque from another, as long as its number is not used again.
struct ChequeKey
{
    Till till;
    QString number;
    QString card;
};

/// Values for `number = ? AND pos = ? AND business_unit = ? AND organization = ? AND card = ?`.
inline QVariantList valuesOf(const ChequeKey &key)
{
    return {key.number, key.till.pos, key.till.businessUnit, key.till.organization, key.card};
}

} // namespace emulator
