#include "journal/CControlJournal.h"

#include "controlhost/CJobs.h"

namespace {

// How long a job of the panel gets to take its last step.
constexpr std::chrono::seconds timeLastStep{ 2 };

} // namespace

CControlJournal::CControlJournal(const SControlPointers& pointersIn, CCallLog& journal, CJobs& jobsIn, const MessageNamer& fnName)
    : pointers(pointersIn), jobs(jobsIn), config(**pointers.ppConfig), prcBasic(**pointers.ppPrcBasic),
      prcList(**pointers.ppPrcList), prcRuntime(**pointers.ppPrcRuntime), preference(**pointers.ppPreference),
      projectManage(**pointers.ppProjectManage), protocal(**pointers.ppProtocal), runtime(**pointers.ppRuntime),
      configJournal(config, journal), prcBasicJournal(prcBasic, journal, jobs), prcListJournal(prcList, journal, jobs),
      prcRuntimeJournal(prcRuntime, journal), preferenceJournal(preference, journal),
      projectManageJournal(projectManage, journal), protocalJournal(protocal, journal), runtimeJournal(runtime, journal, jobs),
      prcBasicMessages(journal, "PrcBasicControl", fnName), prcListMessages(journal, "PrcListControl", fnName),
      prcRuntimeMessages(journal, "PrcRuntimeControl", fnName), preferenceMessages(journal, "PreferenceControl", fnName),
      projectManageMessages(journal, "ProjectManageControl", fnName), protocalMessages(journal, "ProtocalControl", fnName),
      runtimeMessages(journal, "RuntimeControl", fnName)
{
    Listen();
    Install();
}

CControlJournal::~CControlJournal()
{
    jobs.AwaitIdle(timeLastStep);
    *pointers.ppConfig = &config;
    *pointers.ppPrcBasic = &prcBasic;
    *pointers.ppPrcList = &prcList;
    *pointers.ppPrcRuntime = &prcRuntime;
    *pointers.ppPreference = &preference;
    *pointers.ppProjectManage = &projectManage;
    *pointers.ppProtocal = &protocal;
    *pointers.ppRuntime = &runtime;

    prcBasicMessages.Leave(prcBasic);
    prcListMessages.Leave(prcList);
    prcRuntimeMessages.Leave(prcRuntime);
    preferenceMessages.Leave(preference);
    projectManageMessages.Leave(projectManage);
    protocalMessages.Leave(protocal);
    runtimeMessages.Leave(runtime);
}

void CControlJournal::Listen()
{
    prcBasicMessages.Listen(prcBasic);
    prcListMessages.Listen(prcList);
    prcRuntimeMessages.Listen(prcRuntime);
    preferenceMessages.Listen(preference);
    projectManageMessages.Listen(projectManage);
    protocalMessages.Listen(protocal);
    runtimeMessages.Listen(runtime);
}

void CControlJournal::Install()
{
    *pointers.ppConfig = &configJournal;
    *pointers.ppPrcBasic = &prcBasicJournal;
    *pointers.ppPrcList = &prcListJournal;
    *pointers.ppPrcRuntime = &prcRuntimeJournal;
    *pointers.ppPreference = &preferenceJournal;
    *pointers.ppProjectManage = &projectManageJournal;
    *pointers.ppProtocal = &protocalJournal;
    *pointers.ppRuntime = &runtimeJournal;
}
