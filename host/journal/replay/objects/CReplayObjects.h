#pragma once

#include "journal/SControlPointers.h"
#include "journal/replay/objects/CReplayConfig.h"
#include "journal/replay/objects/CReplayPrcBasic.h"
#include "journal/replay/objects/CReplayPrcList.h"
#include "journal/replay/objects/CReplayPrcRuntime.h"
#include "journal/replay/objects/CReplayPreference.h"
#include "journal/replay/objects/CReplayProjectManage.h"
#include "journal/replay/objects/CReplayProtocal.h"
#include "journal/replay/objects/CReplayRuntime.h"

/// The eight control objects of a replay, and pointers to them.
class CReplayObjects
{
public:
    /// answers must outlive it.
    explicit CReplayObjects(IReplayAnswers& answers);
    Q_DISABLE_COPY(CReplayObjects)

    /// Valid as long as this lives.
    SControlPointers GetPointers();

private:
    CReplayConfig config;
    CReplayPrcBasic prcBasic;
    CReplayPrcList prcList;
    CReplayPrcRuntime prcRuntime;
    CReplayPreference preference;
    CReplayProjectManage projectManage;
    CReplayProtocal protocal;
    CReplayRuntime runtime;

    IConfigControl* pConfig = &config;
    IPrcBasicControl* pPrcBasic = &prcBasic;
    IPrcListControl* pPrcList = &prcList;
    IPrcRuntimeControl* pPrcRuntime = &prcRuntime;
    IPreferenceControl* pPreference = &preference;
    IProjectManageControl* pProjectManage = &projectManage;
    IProtocalControl* pProtocal = &protocal;
    IRuntimeControl* pRuntime = &runtime;
};
