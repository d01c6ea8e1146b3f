#pragma once

#include "interfaces/control/CorvidControl.h"

/// Where a control library keeps the pointers to its eight objects. What stands there changes while decorators are
/// in place, so it is looked up at each use.
struct SControlPointers
{
    IConfigControl** ppConfig = nullptr;
    IPrcBasicControl** ppPrcBasic = nullptr;
    IPrcListControl** ppPrcList = nullptr;
    IPrcRuntimeControl** ppPrcRuntime = nullptr;
    IPreferenceControl** ppPreference = nullptr;
    IProjectManageControl** ppProjectManage = nullptr;
    IProtocalControl** ppProtocal = nullptr;
    IRuntimeControl** ppRuntime = nullptr;

    /// Those of the library that the program is linked with.
    static SControlPointers Linked()
    {
        return { &g_pConfigControl,     &g_pPrcBasicControl,      &g_pPrcListControl,  &g_pPrcRuntimeControl,
                 &g_pPreferenceControl, &g_pProjectManageControl, &g_pProtocalControl, &g_pRuntimeControl };
    }
};
