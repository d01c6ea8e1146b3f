#include "CorvidControl/objects/CControlHost.h"

#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CControlLibrary.h"
#include "interfaces/control/CorvidControl.h"

#include <QMap>

IControlHost* CorvidControl_CreateHost(const SControlOptions& options)
{
    return options.nVersion == nControlHostVersion ? CControlHost::Start(options).release() : nullptr;
}

std::unique_ptr<CControlHost> CControlHost::Start(const SControlOptions& options)
{
    Q_ASSERT(!g_pRuntimeControl);
    return std::unique_ptr<CControlHost>(new CControlHost(std::make_unique<CControlLibrary>(options)));
}

CControlHost::CControlHost(std::unique_ptr<CControlLibrary> pLibraryIn) : pLibrary(std::move(pLibraryIn))
{
    const CHostEvents* pEvents = &pLibrary->events;
    connect(pEvents, &CHostEvents::BusyChanged, this, &CControlHost::BusyChanged, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::JobsChanged, this, &CControlHost::JobsChanged, Qt::DirectConnection);
    connect(&pLibrary->jobs, &CJobs::Progressed, this, &CControlHost::JobProgressed, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::ListTroubleChanged, this, &CControlHost::ListTroubleChanged, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::StateChanged, this, &CControlHost::StateChanged, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::LogLine, this, &CControlHost::LogLine, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::LifeStep, this, &CControlHost::LifeStep, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::ScenarioFinished, this, &CControlHost::ScenarioFinished, Qt::DirectConnection);
}

CControlHost::~CControlHost() = default;

bool CControlHost::IsSteerable() const
{
    return true;
}

QString CControlHost::GetListError() const
{
    return pLibrary->store.GetLoadError();
}

QString CControlHost::GetListTrouble() const
{
    return pLibrary->store.GetTrouble();
}

QString CControlHost::SaveList()
{
    return pLibrary->store.Save();
}

QString CControlHost::SaveListAside(QString& strReason)
{
    return pLibrary->store.SaveAside(strReason);
}

QString CControlHost::GetScenarioError() const
{
    return pLibrary->scenario.GetFault();
}

QJsonArray CControlHost::GetInterfaceMarks() const
{
    return pLibrary->scenario.GetMarks();
}

void CControlHost::StartLife()
{
    pLibrary->StartLife();
}

qint64 CControlHost::GetLifeTime() const
{
    return pLibrary->life.GetTime();
}

void CControlHost::OpenProject(const QString& strName)
{
    pLibrary->host.SetProject(strName);
}

void CControlHost::CloseProject()
{
    pLibrary->host.SetProject({});
}

QString CControlHost::GetProjectName() const
{
    return pLibrary->host.GetProject();
}

void CControlHost::SetChiefMode(bool bOn)
{
    pLibrary->host.SetChiefMode(bOn);
}

bool CControlHost::IsChiefMode() const
{
    return pLibrary->host.IsChiefMode();
}

void CControlHost::SetListLocked(bool bLocked)
{
    pLibrary->host.SetLocked(bLocked);
}

bool CControlHost::IsListLocked() const
{
    return pLibrary->host.IsLocked();
}

void CControlHost::SetRefreshBlocked(bool bBlocked)
{
    pLibrary->host.SetRefreshBlocked(bBlocked);
}

bool CControlHost::IsRefreshBlocked() const
{
    return pLibrary->host.IsRefreshBlocked();
}

void CControlHost::SetChief(const QUuid& idGroup, const QUuid& idChief)
{
    pLibrary->processors.SetChief(idGroup, idChief);
}

bool CControlHost::CanRestore() const
{
    return false;
}

SListSnapshot CControlHost::GetSnapshot() const
{
    return { pLibrary->processors.GetTree(false), pLibrary->processors.GetTree(true) };
}

SRefusal CControlHost::FindRestoreFault(const SListSnapshot&, const SListSnapshot&) const
{
    SRefusal refusal;
    refusal.command = CommandRestore;
    refusal.reason = ReasonNotSupported;
    return refusal;
}

bool CControlHost::RestoreList(const SListSnapshot&, const SListSnapshot&)
{
    return false;
}

QList<SEarlierList> CControlHost::GetEarlierLists() const
{
    return {};
}

bool CControlHost::TakeEarlierList(const QString&)
{
    return false;
}

SRefusedList CControlHost::PreviewRefusedList() const
{
    return {};
}

bool CControlHost::UseRefusedList()
{
    return false;
}

bool CControlHost::IsBusy() const
{
    return pLibrary->jobs.IsBusy();
}

QDateTime CControlHost::GetBusySince() const
{
    return pLibrary->jobs.GetBusySince();
}

QStringList CControlHost::GetRunningJobs() const
{
    return pLibrary->jobs.GetRunning();
}

QVector<SRunningJob> CControlHost::GetJobProgress() const
{
    return pLibrary->jobs.GetProgress();
}

void CControlHost::SetUserEditing(bool bOn)
{
    pLibrary->dispatcher.SetUserEditing(bOn);
}

void CControlHost::SetUserActing(bool bOn)
{
    pLibrary->dispatcher.SetUserActing(bOn);
}

void CControlHost::NoteUserInput()
{
    pLibrary->dispatcher.NoteUserInput();
}

QString CControlHost::GetMessageName(int nMessage) const
{
    static const QMap<int, QString> mapName{
        { MessageListChanged, QStringLiteral("ListChanged") },
        { MessageDevicesChanged, QStringLiteral("DevicesChanged") },
        { MessageSelectionChanged, QStringLiteral("SelectionChanged") },
        { MessageProjectChanged, QStringLiteral("ProjectChanged") },
        { MessageDeleteFinished, QStringLiteral("DeleteFinished") },
        { MessageSelectionRefused, QStringLiteral("SelectionRefused") },
        { MessageChiefChanged, QStringLiteral("ChiefChanged") },
        { MessageCommandsChanged, QStringLiteral("CommandsChanged") },
        { MessageCommandRefused, QStringLiteral("CommandRefused") },
        { MessageSettled, QStringLiteral("Settled") },
    };
    return mapName.value(nMessage);
}
