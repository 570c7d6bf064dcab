#pragma once

#include "emulator/books/books.h"
#include "emulator/data/servicedata.h"

#include <QDateTime>

#include <functional>

namespace emulator {

/// Gives the time, UTC.
using Clock = std::function<QDateTime()>;

/// What every operation at the desk works with. Owns nothing; lives for one request.
struct DeskContext
{
    const ServiceData &data;
    Books &books;
    QDateTime now; ///< UTC
};

} // namespace emulator
