#pragma once

#include <QtGlobal>

class ICorvidWidget;
class IUIManagement;

/// Creates the panel. The one symbol that the library exports, under its C++ name.
///
/// GUI thread, after the eight control objects exist. Asks pUIManagement for the parent widget and
/// stores the new panel in *ppWidget; the caller owns the panel and ends it by deleting the interface.
/// Returns 1, or 0 for a null ppWidget, in which case pUIManagement is not touched and nothing is
/// created. An exception from the construction passes through.
///
/// @since 0.1
Q_DECL_EXPORT int CProcessorTreeView_Init(ICorvidWidget** ppWidget, IUIManagement* pUIManagement);
