#include "journal/CControlJournal.h"

#include "interfaces/control/CorvidControl.h"

CControlJournal::CControlJournal(CCallLog& journal, MessageNamer pNamer)
    : config(*g_pConfigControl), prcBasic(*g_pPrcBasicControl), prcList(*g_pPrcListControl), prcRuntime(*g_pPrcRuntimeControl),
      preference(*g_pPreferenceControl), projectManage(*g_pProjectManageControl), protocal(*g_pProtocalControl),
      runtime(*g_pRuntimeControl), configJournal(config, journal), prcBasicJournal(prcBasic, journal),
      prcListJournal(prcList, journal), prcRuntimeJournal(prcRuntime, journal), preferenceJournal(preference, journal),
      projectManageJournal(projectManage, journal), protocalJournal(protocal, journal), runtimeJournal(runtime, journal),
      prcBasicMessages(journal, "PrcBasicControl", pNamer), prcListMessages(journal, "PrcListControl", pNamer),
      prcRuntimeMessages(journal, "PrcRuntimeControl", pNamer), preferenceMessages(journal, "PreferenceControl", pNamer),
      projectManageMessages(journal, "ProjectManageControl", pNamer), protocalMessages(journal, "ProtocalControl", pNamer),
      runtimeMessages(journal, "RuntimeControl", pNamer)
{
    Listen();
    Install();
}

CControlJournal::~CControlJournal()
{
    g_pConfigControl = &config;
    g_pPrcBasicControl = &prcBasic;
    g_pPrcListControl = &prcList;
    g_pPrcRuntimeControl = &prcRuntime;
    g_pPreferenceControl = &preference;
    g_pProjectManageControl = &projectManage;
    g_pProtocalControl = &protocal;
    g_pRuntimeControl = &runtime;

    prcBasic.Detach(&prcBasicMessages);
    prcList.Detach(&prcListMessages);
    prcRuntime.Detach(&prcRuntimeMessages);
    preference.Detach(&preferenceMessages);
    projectManage.Detach(&projectManageMessages);
    protocal.Detach(&protocalMessages);
    runtime.Detach(&runtimeMessages);
}

void CControlJournal::Listen()
{
    prcBasic.Attach(&prcBasicMessages);
    prcList.Attach(&prcListMessages);
    prcRuntime.Attach(&prcRuntimeMessages);
    preference.Attach(&preferenceMessages);
    projectManage.Attach(&projectManageMessages);
    protocal.Attach(&protocalMessages);
    runtime.Attach(&runtimeMessages);
}

void CControlJournal::Install()
{
    g_pConfigControl = &configJournal;
    g_pPrcBasicControl = &prcBasicJournal;
    g_pPrcListControl = &prcListJournal;
    g_pPrcRuntimeControl = &prcRuntimeJournal;
    g_pPreferenceControl = &preferenceJournal;
    g_pProjectManageControl = &projectManageJournal;
    g_pProtocalControl = &protocalJournal;
    g_pRuntimeControl = &runtimeJournal;
}
