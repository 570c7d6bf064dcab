#pragma once

#include <QtCore/qglobal.h>

/// Marks what `libposhost.so` offers. Everything else of the library stays hidden.
#if defined(POSHOST_LIBRARY)
#define POSHOST_EXPORT Q_DECL_EXPORT
#else
#define POSHOST_EXPORT Q_DECL_IMPORT
#endif
