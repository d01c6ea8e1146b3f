#include "interfaces/control/CorvidControl.h"

IConfigControl* g_pConfigControl = nullptr;
IPrcBasicControl* g_pPrcBasicControl = nullptr;
IPrcListControl* g_pPrcListControl = nullptr;
IPrcRuntimeControl* g_pPrcRuntimeControl = nullptr;
IPreferenceControl* g_pPreferenceControl = nullptr;
IProjectManageControl* g_pProjectManageControl = nullptr;
IProtocalControl* g_pProtocalControl = nullptr;
IRuntimeControl* g_pRuntimeControl = nullptr;
