#include "CorvidControl/objects/CControlLibrary.h"

#include "interfaces/control/CorvidControl.h"

#include <QDir>
#include <QStandardPaths>

namespace {

// How long a job of the panel gets to take its last step, when nothing runs inside the library any more.
constexpr std::chrono::seconds timeLastStep{ 2 };

constexpr quint32 nFirstUnlisted = 0xC0A80164; // 192.168.1.100

std::chrono::milliseconds Milliseconds(int nTime)
{
    return std::chrono::milliseconds(nTime);
}

QString FindListFile(const QString& strListFile)
{
    if (!strListFile.isEmpty()) {
        return strListFile;
    }
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    folder.mkpath(QStringLiteral("."));
    return folder.filePath(QStringLiteral("processors.kvtl"));
}

} // namespace

CControlLibrary::CControlLibrary(const SControlOptions& optionsIn, const CControlClock& clock)
    : options(optionsIn), dispatcher(clock, &faults.messages), host(dispatcher, events),
      processors(dispatcher, events, host, options.bLiftLimits ? SListLimits::Lifted() : SListLimits()),
      network({ Milliseconds(options.nScanMs), Milliseconds(options.nAnswerMs), Milliseconds(options.nTimeoutMs),
                Milliseconds(options.nReleaseMs) }),
      commands(processors, jobs, network), history(processors, jobs),
      store(processors, jobs, events, FindListFile(options.strListFile), faults.clock),
      keeper([this] { return store.SaveSoon(); }),
      deletions(processors, jobs, [this](const SListEdition& edition) { store.KeepEarlier(edition); }),
      scenario(options.strScenarioFile.isEmpty() ? CScenario() : CScenario::ReadFile(options.strScenarioFile)),
      runner(processors, host, commands, network, dispatcher, faults, options.nSeed), life(processors, runner, events),
      config(store.GetPath(), faults.calls), prcBasic(dispatcher, faults.calls, processors, commands),
      prcList(dispatcher, faults, processors, commands, store), prcRuntime(dispatcher, faults.calls),
      preference(dispatcher, faults.calls, host), projectManage(dispatcher, faults.calls, host),
      protocal(dispatcher, faults.calls), runtime(dispatcher, faults.calls, processors, jobs)
{
    Connect();
    store.Load();
    for (int n = 0; n < options.nUnlistedDevices; ++n) {
        network.Appear(nFirstUnlisted + static_cast<quint32>(n), QStringLiteral("Newcomer %1").arg(n + 1));
    }
    Publish();
}

CControlLibrary::~CControlLibrary()
{
    faults.Release();
    network.Stop();
    life.Stop();
    jobs.AwaitIdle(timeLastStep);
    keeper.Stop();
    dispatcher.Stop();
    Withdraw();
}

// Before anything can change the list.
void CControlLibrary::Connect()
{
    network.SetListener([this](const SProcessorNode& device) { processors.ApplyReport(device); });
    processors.SetNetwork(network);
    processors.SetEditListener([this] { keeper.Touch(); });
    commands.SetDeletionListener([this](int nNodes) { deletions.BeforeDeletion(nNodes); });
    history.SetKeeper([this](const SListEdition& edition) { store.KeepEarlier(edition); });
    QObject::connect(&jobs, &CJobs::BusyChanged, &events, &CHostEvents::BusyChanged, Qt::DirectConnection);
    QObject::connect(&jobs, &CJobs::JobsChanged, &events, &CHostEvents::JobsChanged, Qt::DirectConnection);
    QObject::connect(&events, &CHostEvents::BusyChanged, &events, [this] { EndJob(); }, Qt::DirectConnection);
}

void CControlLibrary::EndJob()
{
    deletions.EndJob();
    commands.EndJob();
}

void CControlLibrary::ReleaseFaults()
{
    if (faults.Release()) {
        jobs.AwaitIdle(timeLastStep);
    }
}

void CControlLibrary::StartLife()
{
    if (!options.strScenarioFile.isEmpty()) {
        life.StartScenario(scenario.GetSteps());
    } else if (options.bQuietDay) {
        life.StartQuietDay(options.nSeed, options.dPace);
    }
}

void CControlLibrary::Publish()
{
    g_pConfigControl = &config;
    g_pPrcBasicControl = &prcBasic;
    g_pPrcListControl = &prcList;
    g_pPrcRuntimeControl = &prcRuntime;
    g_pPreferenceControl = &preference;
    g_pProjectManageControl = &projectManage;
    g_pProtocalControl = &protocal;
    g_pRuntimeControl = &runtime;
}

void CControlLibrary::Withdraw()
{
    g_pConfigControl = nullptr;
    g_pPrcBasicControl = nullptr;
    g_pPrcListControl = nullptr;
    g_pPrcRuntimeControl = nullptr;
    g_pPreferenceControl = nullptr;
    g_pProjectManageControl = nullptr;
    g_pProtocalControl = nullptr;
    g_pRuntimeControl = nullptr;
}
