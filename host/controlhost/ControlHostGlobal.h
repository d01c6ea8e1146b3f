#pragma once

#include <QtGlobal>

/// Marks what libControlHost exports. The library defines CONTROLHOST_LIBRARY while it is built.
#if defined(CONTROLHOST_LIBRARY)
#define CONTROLHOST_EXPORT Q_DECL_EXPORT
#else
#define CONTROLHOST_EXPORT Q_DECL_IMPORT
#endif
