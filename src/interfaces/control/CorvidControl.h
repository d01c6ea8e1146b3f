#pragma once

#include "interfaces/control/CorvidControlGlobal.h"

class IConfigControl;
class IPrcBasicControl;
class IPrcListControl;
class IPrcRuntimeControl;
class IPreferenceControl;
class IProjectManageControl;
class IProtocalControl;
class IRuntimeControl;

/// The eight objects of the control library. They exist before the panel is created, and none is null, since the panel tests
/// none. [C-library-1 required] They outlive the panel and its last job. [C-library-2 not testable]
///
/// Messages. The seven objects with observers send plain numbers. The panel reads everything again on
/// 1, 7, 9, 10, 14, 15, 32, 53 and 54; it takes note of 59 without reading; it drops all others. Every change that the panel
/// could show is followed by one of the numbers that make it read, within a second where no user is busy. [C-library-3 required]
///
/// @since 0.1
extern CORVIDCONTROL_EXPORT IConfigControl* g_pConfigControl;
extern CORVIDCONTROL_EXPORT IPrcBasicControl* g_pPrcBasicControl;
extern CORVIDCONTROL_EXPORT IPrcListControl* g_pPrcListControl;
extern CORVIDCONTROL_EXPORT IPrcRuntimeControl* g_pPrcRuntimeControl;
extern CORVIDCONTROL_EXPORT IPreferenceControl* g_pPreferenceControl;
extern CORVIDCONTROL_EXPORT IProjectManageControl* g_pProjectManageControl;
extern CORVIDCONTROL_EXPORT IProtocalControl* g_pProtocalControl;
extern CORVIDCONTROL_EXPORT IRuntimeControl* g_pRuntimeControl;

/// The two messages that the panel posts itself, through IRuntimeControl::PostMessage.
///
/// @since 0.1
enum EnPostedMessage
{
    MessageDeleteFinished = 14,   ///< a delete job has ended
    MessageSelectionRefused = 15, ///< the selection after a delete was refused; precedes 14
};
