#pragma once

#include <QtGlobal>

/// Marks what libCommonComponent exports. The library defines COMMONCOMPONENT_LIBRARY while it is built.
#if defined(COMMONCOMPONENT_LIBRARY)
#define COMMONCOMPONENT_EXPORT Q_DECL_EXPORT
#else
#define COMMONCOMPONENT_EXPORT Q_DECL_IMPORT
#endif
