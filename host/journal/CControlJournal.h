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

/// Puts the eight decorators in the place of the control library's objects for as long as it lives, and
/// listens to their messages.
///
/// Made after the control objects exist and before the panel, ended after the panel and before the
/// control library: both while no other thread uses the global pointers.
class CControlJournal
{
public:
    /// pNamer names the messages in the journal.
    CControlJournal(CCallLog& journal, MessageNamer pNamer);
    ~CControlJournal();
    Q_DISABLE_COPY(CControlJournal)

private:
    void Listen();
    void Install();

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
