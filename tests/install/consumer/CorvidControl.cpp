#include "interfaces/control/CorvidControl.h"

int main()
{
    // They exist when a host has created them, not before.
    const bool bAny = g_pConfigControl || g_pPrcBasicControl || g_pPrcListControl || g_pPrcRuntimeControl || g_pPreferenceControl
        || g_pProjectManageControl || g_pProtocalControl || g_pRuntimeControl;
    return bAny ? 1 : 0;
}
