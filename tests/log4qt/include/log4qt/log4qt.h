#pragma once

#include "log4qt/log4qtshared.h"

#include <QSharedPointer>

namespace Log4Qt {

class Appender;
class Layout;
class LogError;
class Logger;
class LoggerRepository;
class LoggingEvent;

using AppenderSharedPtr = QSharedPointer<Appender>;
using LayoutSharedPtr = QSharedPointer<Layout>;

} // namespace Log4Qt
