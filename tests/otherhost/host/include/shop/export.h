#pragma once

#include <QtCore/qglobal.h>

#ifdef SHOP_HOST
#define SHOP_EXPORT Q_DECL_EXPORT
#else
#define SHOP_EXPORT Q_DECL_IMPORT
#endif
