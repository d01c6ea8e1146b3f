#include "interfaces/control/CorvidControl.h"

// The eight pointers, which nobody sets.
Q_DECL_EXPORT IConfigControl* g_pConfigControl = nullptr;
Q_DECL_EXPORT IPrcBasicControl* g_pPrcBasicControl = nullptr;
Q_DECL_EXPORT IPrcListControl* g_pPrcListControl = nullptr;
Q_DECL_EXPORT IPrcRuntimeControl* g_pPrcRuntimeControl = nullptr;
Q_DECL_EXPORT IPreferenceControl* g_pPreferenceControl = nullptr;
Q_DECL_EXPORT IProjectManageControl* g_pProjectManageControl = nullptr;
Q_DECL_EXPORT IProtocalControl* g_pProtocalControl = nullptr;
Q_DECL_EXPORT IRuntimeControl* g_pRuntimeControl = nullptr;
