#pragma once

#include "CorvidControl/CConfigControl.h"
#include "CorvidControl/CDeletionWatch.h"
#include "CorvidControl/CDeviceCommands.h"
#include "CorvidControl/CHostEvents.h"
#include "CorvidControl/CHostState.h"
#include "CorvidControl/CJobs.h"
#include "CorvidControl/CLife.h"
#include "CorvidControl/CListKeeper.h"
#include "CorvidControl/CListStore.h"
#include "CorvidControl/CMessageDispatcher.h"
#include "CorvidControl/CPrcBasicControl.h"
#include "CorvidControl/CPrcListControl.h"
#include "CorvidControl/CPrcRuntimeControl.h"
#include "CorvidControl/CPreferenceControl.h"
#include "CorvidControl/CProjectManageControl.h"
#include "CorvidControl/CProtocalControl.h"
#include "CorvidControl/CRuntimeControl.h"
#include "CorvidControl/CScenario.h"
#include "CorvidControl/CSimulatedNetwork.h"
#include "CorvidControl/CSite.h"
#include "CorvidControl/SControlOptions.h"

/// All parts of the library, in the order in which they need each other, and the way in which they are
/// tied together. Publishes the eight objects while it lives.
class CControlLibrary
{
public:
    explicit CControlLibrary(const SControlOptions& optionsNew);

    /// Ends what blocks, waits for the jobs under way, saves what waits to be saved, joins the threads.
    ~CControlLibrary();

    void StartLife();

    const SControlOptions options;
    CHostEvents events;
    CMessageDispatcher dispatcher;
    CHostState host;
    CSite site;
    CJobs jobs;
    CSimulatedNetwork network;
    CDeviceCommands commands;
    CListStore store;
    CListKeeper keeper;
    CDeletionWatch deletions;
    CScenario scenario;
    CStepRunner runner;
    CLife life;

private:
    void Connect();
    void Publish();
    static void Withdraw();

    CConfigControl config;
    CPrcBasicControl prcBasic;
    CPrcListControl prcList;
    CPrcRuntimeControl prcRuntime;
    CPreferenceControl preference;
    CProjectManageControl projectManage;
    CProtocalControl protocal;
    CRuntimeControl runtime;
};
