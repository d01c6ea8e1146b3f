#pragma once

#include <QtGlobal>

/// Marks what libCorvidControl exports. The library defines CORVIDCONTROL_LIBRARY while it is built.
#if defined(CORVIDCONTROL_LIBRARY)
#define CORVIDCONTROL_EXPORT Q_DECL_EXPORT
#else
#define CORVIDCONTROL_EXPORT Q_DECL_IMPORT
#endif
