#pragma once

#include "CorvidControl/day/CDayPlayer.h"
#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/CSimulatedNetwork.h"
#include "CorvidControl/faults/CFaults.h"
#include "CorvidControl/file/CListKeeper.h"
#include "CorvidControl/file/CListStore.h"
#include "CorvidControl/list/CDeletionWatch.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/objects/CConfigControl.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "CorvidControl/objects/CListHistory.h"
#include "CorvidControl/objects/CPrcBasicControl.h"
#include "CorvidControl/objects/CPrcListControl.h"
#include "CorvidControl/objects/CPrcRuntimeControl.h"
#include "CorvidControl/objects/CPreferenceControl.h"
#include "CorvidControl/objects/CProjectManageControl.h"
#include "CorvidControl/objects/CProtocalControl.h"
#include "CorvidControl/objects/CRuntimeControl.h"
#include "controlhost/CJobs.h"
#include "controlhost/SControlOptions.h"

/// All parts of the library, in the order in which they need each other, and the way in which they are
/// tied together. Publishes the eight objects while it lives. At most one exists at a time; made and ended on one
/// thread, after which no call into it may come.
class CControlLibrary
{
public:
    /// Reads the list file and the scenario file; blocks for the disk. Messages go by clock, which must outlive the library.
    explicit CControlLibrary(const SControlOptions& optionsIn, const CControlClock& clock = CControlClock::GetSystem());

    /// Ends what blocks, waits for the jobs under way, saves what waits to be saved, joins the threads.
    ~CControlLibrary();

    /// Begins the scenario, or the quiet day. Only the first call counts. Any thread.
    void StartLife();

    /// Ends what is held on purpose, and waits for the jobs of the panel that have hung there. Any thread but theirs.
    void ReleaseFaults();

    const SControlOptions options;
    CHostEvents events;
    CFaults faults;
    CMessageDispatcher dispatcher;
    CHostState host;
    CProcessorList processors;
    CJobs jobs;
    CSimulatedNetwork network;
    CDeviceCommands commands;
    CListHistory history;
    CListStore store;
    CListKeeper keeper;
    CDeletionWatch deletions;
    CScenario scenario;
    CStepRunner runner;
    CDayPlayer life;

private:
    void Connect();
    void EndJob();
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
