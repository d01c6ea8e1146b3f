#include "contract/checks/ThreadChecks.h"

#include "contract/checks/CCrew.h"
#include "contract/library/CBusyObserver.h"
#include "contract/library/CListener.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"
#include "contract/library/Subscription.h"
#include "contract/library/Trees.h"
#include "contract/steps/StepOracles.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"

#include <thread>

namespace {

using Call = CCrew::SCall;
using Calls = std::vector<CCrew::SCall>;

constexpr std::chrono::milliseconds timeRun{ 1800 };  // longer than a slow call takes
constexpr std::chrono::milliseconds timeCall{ 1000 }; // for a call that must not wait for slow ones
constexpr std::chrono::milliseconds timePane{ 400 };  // far above what a busy machine adds
constexpr std::chrono::milliseconds timeHeld{ 600 };  // for which a Notify does not return
constexpr quint32 nFirstAddress = 0xC0A80140;         // 192.168.1.64
constexpr int nAddresses = 32;

QUuid Pick(const QList<QUuid>& listId, int nTurn)
{
    return listId.isEmpty() ? QUuid() : listId[nTurn % listId.size()];
}

Calls GetScans(const CLibrary& library)
{
    return { { "RefreshProcessors", [&](int) { library.GetPrcBasic().RefreshProcessors(); }, {} } };
}

Calls GetDeviceCommands(const CLibrary& library, const QList<QUuid>& listId)
{
    return {
        { "AddProcessor",
          [&](int nTurn) { library.GetPrcBasic().AddProcessor(nFirstAddress + static_cast<quint32>(nTurn % nAddresses)); },
          {} },
        { "DeleteProcessor", [&, listId](int nTurn) { library.GetPrcList().DeleteProcessor(Pick(listId, nTurn), false); }, {} }
    };
}

Calls GetTreeReads(const CLibrary& library, std::chrono::milliseconds timeMost)
{
    return { { "GetDiscoveredTree",
               [&](int) {
                   SProcessorAllNode root;
                   library.GetPrcList().GetDiscoveredTree(root);
               },
               timeMost },
             { "GetSimulatorTree",
               [&](int) {
                   SProcessorAllNode root;
                   library.GetPrcList().GetSimulatorTree(root);
               },
               timeMost },
             { "GetSelectedNodes", [&](int nTurn) { library.GetRuntime().GetSelectedNodes(nTurn % 2 == 0); }, timeMost } };
}

Calls GetStateReads(const CLibrary& library, std::chrono::milliseconds timeMost)
{
    return { { "IsListLocked", [&](int) { library.GetPrcBasic().IsListLocked(); }, timeMost },
             { "IsRefreshBlocked", [&](int) { library.GetPrcBasic().IsRefreshBlocked(); }, timeMost },
             { "IsChiefMode", [&](int) { library.GetPreference().IsChiefMode(); }, timeMost },
             { "GetProjectInfo",
               [&](int) {
                   SProjectInfo info;
                   library.GetProjectManage().GetProjectInfo(info);
               },
               timeMost } };
}

Calls GetGestures(const CLibrary& library, const QList<QUuid>& listId, std::chrono::milliseconds timeMost)
{
    return {
        { "SetExpanded", [&, listId](int nTurn) { library.GetPrcList().SetExpanded(Pick(listId, nTurn), nTurn % 2 == 0); },
          timeMost },
        { "SetSelectedNodes", [&, listId](int nTurn) { library.GetRuntime().SetSelectedNodes({ Pick(listId, nTurn) }); },
          timeMost },
        { "MoveProcessor",
          [&, listId](int nTurn) { library.GetPrcList().MoveProcessor(Pick(listId, nTurn), Pick(listId, nTurn + 1)); },
          timeMost },
        { "RenameGroup",
          [&, listId](int nTurn) { library.GetPrcList().RenameGroup(Pick(listId, nTurn), QStringLiteral("Turn %1").arg(nTurn)); },
          timeMost },
        { "SetSimulatorPane", [&](int nTurn) { library.GetRuntime().SetSimulatorPane(nTurn % 2 == 0); }, timeMost },
        { "PostMessage", [&](int) { library.GetRuntime().PostMessage(MessageDeleteFinished); }, timeMost },
    };
}

Calls GetQuestions(const CLibrary& library, const QList<QUuid>& listId, std::chrono::milliseconds timeMost)
{
    return {
        { "IsNodeActive", [&, listId](int nTurn) { library.GetPrcList().IsNodeActive(Pick(listId, nTurn)); }, timeMost },
        { "IsNodeInUse", [&, listId](int nTurn) { library.GetRuntime().IsNodeInUse(Pick(listId, nTurn)); }, timeMost },
        { "IsDeleteBlocked", [&, listId](int nTurn) { library.GetRuntime().IsDeleteBlocked(Pick(listId, nTurn)); }, timeMost },
        { "GetSelectedProcessors", [&](int) { library.GetRuntime().GetSelectedProcessors(); }, timeMost },
        { "GetNextGroupIndex", [&](int) { library.GetPrcList().GetNextGroupIndex(); }, timeMost },
        { "GetNodeType", [&, listId](int nTurn) { library.GetPrcList().GetNodeType(Pick(listId, nTurn)); }, timeMost },
    };
}

Calls GetSubscriptions(const CLibrary& library, CListener& listener)
{
    return { { "Attach and Detach",
               [&](int) {
                   Subscription::Attach(library, &listener);
                   Subscription::Detach(library, &listener);
               },
               {} } };
}

QList<QUuid> GetAllIds(const SReading& reading)
{
    return Trees::GetIds(reading.root[0]) + Trees::GetIds(reading.root[1]);
}

} // namespace

SOutcome ThreadChecks::TryThreads(CSite& site)
{
    const CLibrary& library = site.GetLibrary();
    SStepRun run;
    run.after = site.Read();
    const bool bSound = StepOracles::JudgeIds(run).isEmpty();
    const QList<QUuid> listId = GetAllIds(run.after);
    auto* pListener = new CListener(library); // left to the threads
    CCrew crew;
    crew.Add(GetScans(library));
    crew.Add(GetDeviceCommands(library, listId.mid(listId.size() - 2)));
    crew.Add(GetTreeReads(library, timeCall));
    crew.Add(GetTreeReads(library, timeCall));
    crew.Add(GetStateReads(library, timeCall));
    crew.Add(GetGestures(library, listId, timeCall));
    crew.Add(GetQuestions(library, listId, timeCall));
    crew.Add(GetSubscriptions(library, *pListener));
    site.GetStory().Call(
        QStringLiteral("eight threads: a scan; AddProcessor and DeleteProcessor; reads on three; gestures; questions; "
                       "Attach and Detach"));
    const QString strFault = crew.Run(timeRun);
    if (!strFault.isEmpty()) {
        return Outcome::Break(strFault);
    }
    run.after = site.Read();
    return Outcome::Judge(bSound ? StepOracles::JudgeIds(run) : QString());
}

SOutcome ThreadChecks::TryPaneWhileHeld(CSite& site)
{
    const CLibrary& library = site.GetLibrary();
    const QList<QUuid> listId = GetAllIds(site.Read());
    const QString strPath = site.GetPath(QStringLiteral("held.kvtl"));
    auto* pObserver = new CBusyObserver([] { std::this_thread::sleep_for(timeHeld); }); // never destroyed, see there
    site.Ask(QStringLiteral("Attach of an observer to all seven objects"), [&] { Subscription::Attach(library, pObserver); });
    CCrew crew;
    crew.Add({ { "IsSimulatorPane", [&](int) { library.GetRuntime().IsSimulatorPane(); }, timePane } });
    crew.Add(GetScans(library));
    crew.Add(GetDeviceCommands(library, listId.mid(listId.size() - 2)));
    crew.Add(GetTreeReads(library, {}));
    crew.Add(GetStateReads(library, {}));
    crew.Add(GetGestures(library, listId, {}));
    crew.Add({ { "ExportList", [&](int) { library.GetPrcList().ExportList(strPath, 0); }, {} },
               { "ImportList", [&](int) { library.GetPrcList().ImportList(strPath); }, {} } });
    site.GetStory().Call(
        QStringLiteral("IsSimulatorPane(), while a Notify does not return and six threads scan, add, delete, read, "
                       "write, export and import"));
    const QString strFault = crew.Run(timeRun);
    site.Ask(QStringLiteral("Detach of the observer from all seven objects"), [&] { Subscription::Detach(library, pObserver); });
    return Outcome::Judge(strFault);
}
