#pragma once

#include <QtCore/qglobal.h>

#define LOG4QT_EXPORT Q_DECL_IMPORT
