#include "CorvidControl/objects/CControlHost.h"

#include "CorvidControl/day/ScenarioFaults.h"
#include "CorvidControl/day/StepVerbs.h"
#include "CorvidControl/list/FaultText.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CControlLibrary.h"
#include "interfaces/control/CorvidControl.h"

#include <QCoreApplication>
#include <QJsonObject>
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
    connect(pEvents, &CHostEvents::ListEdited, this, &CControlHost::ListEdited, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::CommandRefused, this, &CControlHost::CommandRefused, Qt::DirectConnection);
    connect(pEvents, &CHostEvents::ScenarioFinished, this, &CControlHost::ScenarioFinished, Qt::DirectConnection);
    // Before the panel ends: it waits for some of what it has called, and the rest must not come back to one that is gone.
    if (const QCoreApplication* pApplication = QCoreApplication::instance()) {
        connect(pApplication, &QCoreApplication::aboutToQuit, this, [this] { pLibrary->ReleaseFaults(); }, Qt::DirectConnection);
    }
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

QString CControlHost::TakeFault(const QJsonObject& step)
{
    QJsonObject keys = step;
    keys.insert(QStringLiteral("at"), 0);
    const QString strDo = keys.value(QLatin1String("do")).toString();
    const SStepVerb* pVerb = StepVerbs::Find(strDo);
    const QString strFault = ScenarioFaults::FindStepFault(keys);
    if (!strFault.isEmpty() || !pVerb->bFault) {
        return strFault.isEmpty() ? QStringLiteral("that is no fault") : strFault;
    }
    return pLibrary->runner.Run({ 0, strDo, keys }).strFault;
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
    pLibrary->processors.ChooseChief(idGroup, idChief);
}

bool CControlHost::CanRestore() const
{
    return true;
}

SListSnapshot CControlHost::GetSnapshot() const
{
    return pLibrary->processors.GetSnapshot();
}

SRefusal CControlHost::FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const
{
    const SFault fault = pLibrary->history.FindFault(from, to);
    return { CommandRestore, {}, fault.reason, fault.strDetail, FaultText::Build(fault) };
}

bool CControlHost::RestoreList(const SListSnapshot& from, const SListSnapshot& to)
{
    return pLibrary->history.Restore(from, to);
}

QList<SEarlierList> CControlHost::GetEarlierLists() const
{
    return pLibrary->store.FindEarlier();
}

bool CControlHost::TakeEarlierList(const QString& strPath)
{
    return pLibrary->store.TakeEarlier(strPath);
}

SRefusedList CControlHost::PreviewRefusedList() const
{
    return pLibrary->store.PreviewRefused();
}

bool CControlHost::UseRefusedList()
{
    return pLibrary->store.UseRefused();
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
