#include "Kestrel/CBareControlHost.h"

#include "controlhost/CJobs.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/SProjectInfo.h"

CBareControlHost::CBareControlHost(const SControlPointers& pointersIn, const CJobs& jobsIn) : pointers(pointersIn), jobs(jobsIn)
{
    connect(&jobs, &CJobs::BusyChanged, this, &CBareControlHost::BusyChanged, Qt::DirectConnection);
    connect(&jobs, &CJobs::JobsChanged, this, &CBareControlHost::JobsChanged, Qt::DirectConnection);
    (*pointers.ppProjectManage)->Attach(this);
    (*pointers.ppPreference)->Attach(this);
    (*pointers.ppPrcBasic)->Attach(this);
}

CBareControlHost::~CBareControlHost()
{
    (*pointers.ppPrcBasic)->Detach(this);
    (*pointers.ppPreference)->Detach(this);
    (*pointers.ppProjectManage)->Detach(this);
}

bool CBareControlHost::IsSteerable() const
{
    return false;
}

QString CBareControlHost::GetProjectName() const
{
    SProjectInfo info;
    (*pointers.ppProjectManage)->GetProjectInfo(info);
    return QString::fromStdString(info.strName);
}

bool CBareControlHost::IsChiefMode() const
{
    return (*pointers.ppPreference)->IsChiefMode();
}

bool CBareControlHost::IsListLocked() const
{
    return (*pointers.ppPrcBasic)->IsListLocked();
}

bool CBareControlHost::IsRefreshBlocked() const
{
    return (*pointers.ppPrcBasic)->IsRefreshBlocked();
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

void CBareControlHost::Notify(int)
{
    emit StateChanged();
}

QString CBareControlHost::GetListError() const
{
    return {};
}

QString CBareControlHost::GetListTrouble() const
{
    return {};
}

QString CBareControlHost::SaveList()
{
    return {};
}

QString CBareControlHost::SaveListAside(QString&)
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

qint64 CBareControlHost::GetLifeTime() const
{
    return 0;
}

QString CBareControlHost::GetMessageName(int) const
{
    return {};
}

// What has no counterpart among the eight objects.

void CBareControlHost::StartLife() { }

void CBareControlHost::OpenProject(const QString&) { }

void CBareControlHost::CloseProject() { }

void CBareControlHost::SetChiefMode(bool) { }

void CBareControlHost::SetListLocked(bool) { }

void CBareControlHost::SetRefreshBlocked(bool) { }

void CBareControlHost::SetUserEditing(bool) { }

void CBareControlHost::SetUserActing(bool) { }

void CBareControlHost::NoteUserInput() { }
