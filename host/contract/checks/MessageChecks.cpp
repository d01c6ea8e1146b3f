#include "contract/checks/MessageChecks.h"

#include "contract/checks/Patience.h"
#include "contract/library/CBusyObserver.h"
#include "contract/library/CListener.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"
#include "contract/library/Subscription.h"
#include "contract/library/Trees.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <atomic>
#include <memory>
#include <thread>

namespace {

constexpr std::chrono::milliseconds timeMessage{ 1000 };
constexpr std::chrono::milliseconds timeStraggler{ 250 };
constexpr std::chrono::milliseconds timeNotify{ 60 };
constexpr std::chrono::milliseconds timeRead{ 2000 };
constexpr int nRounds = 3;

const QString strSilent = QStringLiteral("no message came within 1 s of any call");

void ReadAll(const CLibrary& library)
{
    SProcessorAllNode root;
    library.GetPrcList().GetDiscoveredTree(root);
    library.GetPrcList().GetSimulatorTree(root);
    library.GetRuntime().GetSelectedNodes(false);
    library.GetPrcBasic().IsListLocked();
    library.GetPreference().IsChiefMode();
    library.GetRuntime().IsSimulatorPane();
}

// Whether all that a panel reads has returned to another thread in that time. That thread may outlive the call.
bool ReadsElsewhere(const CLibrary& library)
{
    const auto pDone = std::make_shared<std::atomic<bool>>(false);
    std::thread([&library, pDone] {
        ReadAll(library);
        *pDone = true;
    }).detach();
    return Patience::Await([&] { return pDone->load(); }, timeRead);
}

// Things that a library may tell its observers of by different ways.
void MakeMessage(CSite& site, int nRound)
{
    const SReading reading = site.Read();
    switch (nRound) {
    case 0:
        site.Post(MessageDeleteFinished);
        break;
    case 1:
        site.SetExpanded({}, !reading.GetCurrent().bExpanded);
        break;
    default:
        site.SetPane(!reading.bSimulator);
        break;
    }
}

void Attach(CSite& site, CObserver& observer)
{
    site.Call(QStringLiteral("Attach of an observer to all seven objects"),
              [&] { Subscription::Attach(site.GetLibrary(), &observer); });
}

void Detach(CSite& site, CObserver& observer)
{
    site.Call(QStringLiteral("Detach of it from all seven"), [&] { Subscription::Detach(site.GetLibrary(), &observer); });
}

// bStarted becomes true when there was a Notify at all.
QString TryDetachOnce(CSite& site, int nRound, bool& bStarted)
{
    auto* pObserver = new CBusyObserver([] { std::this_thread::sleep_for(timeNotify); }); // never destroyed, see there
    Attach(site, *pObserver);
    MakeMessage(site, nRound);
    bStarted = pObserver->AwaitStart(timeMessage) || bStarted;
    Detach(site, *pObserver);
    if (pObserver->IsRunning()) {
        return QStringLiteral("Detach has returned while a Notify was running");
    }
    const int nCount = pObserver->GetCount();
    MakeMessage(site, nRound);
    const bool bLate = Patience::Await([&] { return pObserver->GetCount() > nCount; }, timeStraggler);
    return bLate ? QStringLiteral("a Notify came after Detach had returned") : QString();
}

} // namespace

SOutcome MessageChecks::TryFirstMessage(CSite& site)
{
    CListener& listener = *new CListener(site.GetLibrary()); // never destroyed, as CBusyObserver
    Attach(site, listener);
    if (IControlHost* pHost = site.GetLibrary().GetHost()) {
        site.Call(QStringLiteral("the host starts the devices' life"), [&] { pHost->StartLife(); });
    }
    const bool bCame = listener.AwaitReading(0, timeMessage);
    Detach(site, listener);
    return Outcome::Judge(bCame ? QString() : QStringLiteral("no message that makes a panel read came within 1 s"));
}

SOutcome MessageChecks::TryDetach(CSite& site)
{
    bool bStarted = false;
    for (int nRound = 0; nRound < nRounds; ++nRound) {
        const QString strFault = TryDetachOnce(site, nRound, bStarted);
        if (!strFault.isEmpty()) {
            return Outcome::Break(strFault);
        }
    }
    return bStarted ? Outcome::Keep() : Outcome::LeaveUntried(strSilent);
}

SOutcome MessageChecks::TryPost(CSite& site)
{
    for (const int nMessage : { MessageDeleteFinished, MessageSelectionRefused }) {
        CListener& listener = *new CListener(site.GetLibrary()); // never destroyed, as CBusyObserver
        Attach(site, listener);
        site.Post(nMessage);
        const bool bCame = listener.AwaitMessage(nMessage, timeMessage);
        Detach(site, listener);
        if (!bCame) {
            return Outcome::Break(QStringLiteral("%1 did not come within 1 s").arg(nMessage));
        }
    }
    return Outcome::Keep();
}

SOutcome MessageChecks::TryReadDuringNotify(CSite& site)
{
    bool bStarted = false;
    for (int nRound = 0; nRound < nRounds; ++nRound) {
        const auto pRead = std::make_shared<std::atomic<bool>>(true);
        const CLibrary& library = site.GetLibrary();
        CBusyObserver& observer = *new CBusyObserver([&library, pRead] { *pRead = ReadsElsewhere(library); }); // never destroyed
        Attach(site, observer);
        MakeMessage(site, nRound);
        bStarted = observer.AwaitStart(timeMessage) || bStarted;
        Detach(site, observer);
        if (!*pRead) {
            return Outcome::Break(
                QStringLiteral("a read on another thread had not returned after %1 s of a Notify").arg(timeRead.count() / 1000));
        }
    }
    return bStarted ? Outcome::Keep() : Outcome::LeaveUntried(strSilent);
}

SOutcome MessageChecks::TryCallInNotify(CSite& site)
{
    const QList<QUuid> listId = Trees::GetIds(site.Read().GetCurrent());
    const CLibrary& library = site.GetLibrary();
    auto* pObserver = new CBusyObserver([&library, listId] { // never destroyed, see there
        ReadAll(library);
        library.GetPrcList().SetExpanded(listId.value(0), false);
        library.GetRuntime().SetSelectedNodes({ listId.value(0) });
        library.GetRuntime().PostMessage(MessageDeleteFinished);
    });
    Attach(site, *pObserver);
    bool bStarted = false;
    for (int nRound = nRounds; nRound-- > 0 && !bStarted;) {
        MakeMessage(site, nRound);
        bStarted = pObserver->AwaitStart(timeMessage);
    }
    if (!bStarted) {
        return Outcome::LeaveUntried(strSilent);
    }
    site.GetStory().Call(QStringLiteral("reads, SetExpanded, SetSelectedNodes and PostMessage from inside its Notify"));
    if (!pObserver->AwaitEnd(timeRead)) {
        return Outcome::Break(QStringLiteral("they had not returned after %1 s").arg(timeRead.count() / 1000));
    }
    Detach(site, *pObserver);
    return Outcome::Keep();
}
