#pragma once

#include "tests/till/accept/wrongservice.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <iosfwd>

/// A service that is wrong in one rule.
struct Wrong
{
    const char *name;
    QStringList rules; ///< that must fail, and no others
    std::function<WrongService::Change()> change; ///< makes one that begins anew
    bool leavesTraces = false; ///< what it has booked cannot be taken back through it
};

void PrintTo(const Wrong &wrong, std::ostream *out);

/// One for each rule at least.
[[nodiscard]] const QList<Wrong> &wrongs();
