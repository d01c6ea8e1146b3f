#include "Kestrel/CBareControlHost.h"

#include "controlhost/CJobs.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "journal/SControlPointers.h"

CBareControlHost::CBareControlHost(const SControlPointers& pointers, const CJobs& jobsIn)
    : config(**pointers.ppConfig), prcBasic(**pointers.ppPrcBasic), prcList(**pointers.ppPrcList),
      prcRuntime(**pointers.ppPrcRuntime), preference(**pointers.ppPreference), projectManage(**pointers.ppProjectManage),
      protocal(**pointers.ppProtocal), runtime(**pointers.ppRuntime), jobs(jobsIn)
{
    connect(&jobs, &CJobs::BusyChanged, this, &CBareControlHost::BusyChanged, Qt::DirectConnection);
    connect(&jobs, &CJobs::JobsChanged, this, &CBareControlHost::JobsChanged, Qt::DirectConnection);
    connect(&jobs, &CJobs::Progressed, this, &CBareControlHost::JobProgressed, Qt::DirectConnection);
    ReadState();
    // All of them, as the panel: nothing says which object sends what.
    prcBasic.Attach(this);
    prcList.Attach(this);
    prcRuntime.Attach(this);
    preference.Attach(this);
    projectManage.Attach(this);
    protocal.Attach(this);
    runtime.Attach(this);
}

CBareControlHost::~CBareControlHost()
{
    prcBasic.Detach(this);
    prcList.Detach(this);
    prcRuntime.Detach(this);
    preference.Detach(this);
    projectManage.Detach(this);
    protocal.Detach(this);
    runtime.Detach(this);
}

bool CBareControlHost::IsSteerable() const
{
    return false;
}

QString CBareControlHost::SaveList()
{
    const QString strPath = config.GetListFilePath();
    const qint32 nResult = strPath.isEmpty() ? 0 : prcList.ExportList(strPath, 0);
    return nResult == 0 ? QString() : QStringLiteral("%1: the control library answers %2").arg(strPath).arg(nResult);
}

QString CBareControlHost::SaveListAside(QString& strReason)
{
    strReason = QStringLiteral("the control library has no dated files");
    return {};
}

void CBareControlHost::StartLife()
{
    runtime.PostMessage(MessageDeleteFinished);
}

QString CBareControlHost::GetProjectName() const
{
    return GetState().strProject;
}

bool CBareControlHost::IsChiefMode() const
{
    return GetState().bChiefMode;
}

bool CBareControlHost::IsListLocked() const
{
    return GetState().bListLocked;
}

bool CBareControlHost::IsRefreshBlocked() const
{
    return GetState().bRefreshBlocked;
}

bool CBareControlHost::IsBusy() const
{
    return jobs.IsBusy();
}

QDateTime CBareControlHost::GetBusySince() const
{
    return jobs.GetBusySince();
}

QStringList CBareControlHost::GetRunningJobs() const
{
    return jobs.GetRunning();
}

QVector<SRunningJob> CBareControlHost::GetJobProgress() const
{
    return jobs.GetProgress();
}

void CBareControlHost::Notify(int)
{
    ReadState();
    emit StateChanged();
}

// Two messages at a time may leave the older reading; the next message mends it, as in the panel.
void CBareControlHost::ReadState()
{
    SProjectInfo info;
    projectManage.GetProjectInfo(info);
    const SState stateNow{ QString::fromStdString(info.strName), preference.IsChiefMode(), prcBasic.IsListLocked(),
                           prcBasic.IsRefreshBlocked() };
    const std::lock_guard<std::mutex> lock(mutex);
    state = stateNow;
}

CBareControlHost::SState CBareControlHost::GetState() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return state;
}

// What has no counterpart among the eight objects.

QString CBareControlHost::GetListError() const
{
    return {};
}

QString CBareControlHost::GetListTrouble() const
{
    return {};
}

QString CBareControlHost::GetScenarioError() const
{
    return {};
}

QJsonArray CBareControlHost::GetInterfaceMarks() const
{
    return {};
}

QString CBareControlHost::GetMessageName(int) const
{
    return {};
}

void CBareControlHost::OpenProject(const QString&) { }

void CBareControlHost::CloseProject() { }

void CBareControlHost::SetChiefMode(bool) { }

void CBareControlHost::SetListLocked(bool) { }

void CBareControlHost::SetRefreshBlocked(bool) { }

void CBareControlHost::SetUserEditing(bool) { }

void CBareControlHost::SetUserActing(bool) { }

void CBareControlHost::NoteUserInput() { }

void CBareControlHost::SetChief(const QUuid&, const QUuid&) { }

bool CBareControlHost::CanRestore() const
{
    return false;
}

SListSnapshot CBareControlHost::GetSnapshot() const
{
    return {};
}

SRefusal CBareControlHost::FindRestoreFault(const SListSnapshot&, const SListSnapshot&) const
{
    SRefusal refusal;
    refusal.command = CommandRestore;
    refusal.reason = ReasonNotSupported;
    return refusal;
}

bool CBareControlHost::RestoreList(const SListSnapshot&, const SListSnapshot&)
{
    return false;
}

QList<SEarlierList> CBareControlHost::GetEarlierLists() const
{
    return {};
}

bool CBareControlHost::TakeEarlierList(const QString&)
{
    return false;
}

SRefusedList CBareControlHost::PreviewRefusedList() const
{
    return {};
}

bool CBareControlHost::UseRefusedList()
{
    return false;
}
