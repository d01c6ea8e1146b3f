#pragma once

#include "journal/CCallLog.h"
#include "journal/CConfigJournal.h"
#include "journal/CMessageJournal.h"
#include "journal/CPrcBasicJournal.h"
#include "journal/CPrcListJournal.h"
#include "journal/CPrcRuntimeJournal.h"
#include "journal/CPreferenceJournal.h"
#include "journal/CProjectManageJournal.h"
#include "journal/CProtocalJournal.h"
#include "journal/CRuntimeJournal.h"
#include "journal/SControlPointers.h"

class CJobs;

/// Puts the eight decorators in the place of the control library's objects for as long as it lives, and
/// listens to their messages.
///
/// Made after the control objects exist and before the panel, ended after the panel and before the
/// control library: both while no other thread uses the global pointers.
class CControlJournal
{
public:
    /// jobsIn counts the jobs of the panel and the calls that block. fnName names the messages in the journal. What
    /// pointersIn names must be valid, and jobsIn live, for as long as the journal.
    CControlJournal(const SControlPointers& pointersIn, CCallLog& journal, CJobs& jobsIn, const MessageNamer& fnName);

    /// Waits for the calls that block, without a limit, and two seconds for the busy state: its job may have died.
    ~CControlJournal();
    Q_DISABLE_COPY(CControlJournal)

private:
    void Listen();
    void Install();

    const SControlPointers pointers;
    CJobs& jobs;

    /// The objects of the control library.
    IConfigControl& config;
    IPrcBasicControl& prcBasic;
    IPrcListControl& prcList;
    IPrcRuntimeControl& prcRuntime;
    IPreferenceControl& preference;
    IProjectManageControl& projectManage;
    IProtocalControl& protocal;
    IRuntimeControl& runtime;

    CConfigJournal configJournal;
    CPrcBasicJournal prcBasicJournal;
    CPrcListJournal prcListJournal;
    CPrcRuntimeJournal prcRuntimeJournal;
    CPreferenceJournal preferenceJournal;
    CProjectManageJournal projectManageJournal;
    CProtocalJournal protocalJournal;
    CRuntimeJournal runtimeJournal;

    CMessageJournal prcBasicMessages;
    CMessageJournal prcListMessages;
    CMessageJournal prcRuntimeMessages;
    CMessageJournal preferenceMessages;
    CMessageJournal projectManageMessages;
    CMessageJournal protocalMessages;
    CMessageJournal runtimeMessages;
};
