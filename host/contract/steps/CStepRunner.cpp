#include "contract/steps/CStepRunner.h"

#include "contract/library/CListener.h"
#include "contract/library/CSite.h"
#include "contract/library/Trees.h"
#include "contract/steps/StrayCalls.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QFileInfo>

#include <algorithm>
#include <thread>

namespace {

constexpr std::chrono::milliseconds timeLate{ 1000 }; // how much later a command may show
constexpr std::chrono::milliseconds timePoll{ 5 };
constexpr int nMostSelected = 3;
constexpr int nMostGroups = 200;
constexpr quint32 nFirstAddress = 0xC0A801B4; // 192.168.1.180
constexpr int nAddresses = 16;
constexpr int listMessage[] = { 1, 7, 9, 10, 14, 15, 32, 53, 54, 59 };

template <typename List> const typename List::value_type* Choose(const List& list, int nNumber)
{
    return list.empty() ? nullptr : &list.at(nNumber % static_cast<int>(list.size()));
}

// What a library must have at once, since the panel reads it next.
bool IsImmediate(EnVerb verb)
{
    return verb == VerbPane || verb == VerbExpand || verb == VerbExpandRoot || verb == VerbSelect || verb == VerbSelectRoot;
}

} // namespace

QString CStepRunner::Run(const SStep& step, StepOracle oracle)
{
    SStepRun& run = last;
    run = {};
    run.verb = step.verb;
    run.before = site.Read();
    run.nPane = run.before.bSimulator ? 1 : 0;
    const int nReadings = pListener ? pListener->GetReadings() : 0;
    const auto timeStart = std::chrono::steady_clock::now();
    if (!Act(step, run)) {
        return {};
    }
    const auto timeEnd = std::chrono::steady_clock::now();
    run.time = std::chrono::duration_cast<std::chrono::milliseconds>(timeEnd - timeStart);
    for (;;) {
        run.after = site.Read();
        run.again = site.Read();
        Watch(run, nReadings);
        NoteTried(run);
        const QString strFault = oracle(run);
        if (strFault.isEmpty() || IsImmediate(step.verb) || std::chrono::steady_clock::now() - timeEnd > timeLate) {
            return strFault;
        }
        std::this_thread::sleep_for(timePoll);
    }
}

const SStepRun& CStepRunner::GetLast() const
{
    return last;
}

bool CStepRunner::WasTried(EnVerb verb) const
{
    return verb == VerbCount ? !setTried.isEmpty() : setTried.contains(verb);
}

// A step that the library may refuse counts when it did not.
void CStepRunner::NoteTried(const SStepRun& run)
{
    const bool bFree = IsImmediate(run.verb) || run.verb == VerbStray || run.verb == VerbPost;
    if (bFree || run.bAllowed || !Trees::LookAlike(run.before, run.after)) {
        setTried.insert(run.verb);
    }
}

void CStepRunner::Watch(SStepRun& run, int nReadings)
{
    if (pListener && bAwait && !Trees::LookAlike(run.before, run.after)) {
        run.bMessage = pListener->AwaitReading(nReadings, timeLate);
    }
    run.bOnCaller = pListener && pListener->WasOnCaller();
}

bool CStepRunner::Act(const SStep& step, SStepRun& run)
{
    switch (step.verb) {
    case VerbPane:
        run.bOn = !run.before.bSimulator;
        site.SetPane(run.bOn);
        return true;
    case VerbSelect:
    case VerbSelectRoot:
        return ActOnSelection(step, run);
    case VerbExpand:
    case VerbExpandRoot:
        return ActOnNode(step, run);
    case VerbAddGroup:
    case VerbRenameGroup:
    case VerbDeleteGroup:
    case VerbDissolve:
        return ActOnGroup(step, run);
    case VerbRenameProcessor:
    case VerbMove:
    case VerbMoveToRoot:
    case VerbDeleteProcessor:
        return ActOnProcessor(step, run);
    case VerbPost:
        site.Post(listMessage[step.nFirst % static_cast<int>(std::size(listMessage))]);
        return true;
    case VerbAddProcessor:
        site.AddProcessor(nFirstAddress + static_cast<quint32>(step.nFirst % nAddresses));
        return true;
    case VerbFile:
        return ActOnFile(step);
    case VerbHost:
        return ActOnHost(step, run);
    case VerbStray:
        return ActOnStray(step, run);
    case VerbCount:
        break;
    }
    return false;
}

bool CStepRunner::ActOnSelection(const SStep& step, SStepRun& run)
{
    QList<QUuid> listId = Trees::GetIds(run.before.GetCurrent());
    const int nCount = qMin(1 + step.nSecond % nMostSelected, listId.size());
    for (int n = 0; n < nCount; ++n) {
        run.vecId.push_back(listId.takeAt((step.nFirst + n * step.nSecond) % listId.size()));
    }
    if (step.verb == VerbSelectRoot) {
        run.vecId.resize(step.nSecond % 2 == 0 ? 0 : run.vecId.size());
        run.vecId.insert(run.vecId.begin() + step.nFirst % (static_cast<int>(run.vecId.size()) + 1), QUuid());
    }
    if (run.vecId.empty()) {
        return false;
    }
    run.bAllowed = !run.before.bListLocked;
    run.bAnswer = site.Select(run.vecId);
    return true;
}

bool CStepRunner::ActOnNode(const SStep& step, SStepRun& run)
{
    const SNode* pNode = &run.before.GetCurrent();
    if (step.verb == VerbExpand) {
        const QUuid* pId = Choose(Trees::GetIds(run.before.GetCurrent()).toVector(), step.nFirst);
        if (!pId) {
            return false;
        }
        run.id = *pId;
        pNode = Trees::Find(run.before.GetCurrent(), run.id);
    }
    run.bOn = !pNode->bExpanded;
    site.SetExpanded(run.id, run.bOn);
    return true;
}

bool CStepRunner::ActOnGroup(const SStep& step, SStepRun& run)
{
    run.bAllowed = !run.before.bListLocked;
    if (step.verb == VerbAddGroup) {
        if (run.before.GetCurrent().listGroup.size() >= nMostGroups) {
            return false;
        }
        run.strName = NewName();
        run.id = site.AddGroup(run.strName);
        return true;
    }
    const SProcessorGroupNode* pGroup = Choose(run.before.GetCurrent().listGroup, step.nFirst);
    if (!pGroup) {
        return false;
    }
    run.id = pGroup->idNode;
    if (step.verb == VerbRenameGroup) {
        run.strName = NewName();
        site.RenameGroup(run.id, run.strName);
        return true;
    }
    return Delete(run);
}

bool CStepRunner::ActOnProcessor(const SStep& step, SStepRun& run)
{
    const QVector<SProcessorNode> listProcessor = Trees::GetProcessors(run.before.GetCurrent()).toVector();
    const SProcessorNode* pNode = Choose(listProcessor, step.nFirst);
    const SProcessorGroupNode* pGroup = Choose(run.before.GetCurrent().listGroup, step.nSecond);
    if (!pNode || (step.verb == VerbMove && !pGroup)) {
        return false;
    }
    run.id = pNode->idNode;
    run.bAllowed = !run.before.bListLocked;
    if (step.verb == VerbDeleteProcessor) {
        return Delete(run);
    }
    if (step.verb == VerbRenameProcessor) {
        site.Ask(QStringLiteral("IsNodeActive"),
                 [&] { run.bAllowed = site.GetLibrary().GetPrcList().IsNodeActive(run.id) && run.bAllowed; });
        run.strName = NewName();
        site.RenameProcessor(run.id, run.strName);
    } else {
        run.idGroup = step.verb == VerbMove ? pGroup->idNode : QUuid();
        site.Move(run.id, run.idGroup);
    }
    return true;
}

bool CStepRunner::Delete(SStepRun& run)
{
    if (run.verb != VerbDeleteProcessor) {
        for (const SProcessorNode& node : Trees::FindGroup(run.before.GetCurrent(), run.id)->listProcessor) {
            run.vecId.push_back(node.idNode);
        }
    }
    if (run.verb != VerbDissolve) {
        run.bAllowed = run.bAllowed && MayDelete(run);
        run.setGone = QSet<QUuid>(run.vecId.begin(), run.vecId.end());
    }
    run.setGone.insert(run.id);
    idGone = run.id;
    if (run.verb == VerbDeleteProcessor) {
        site.DeleteProcessor(run.id);
    } else {
        site.DeleteGroup(run.id, run.verb == VerbDeleteGroup);
    }
    return true;
}

bool CStepRunner::MayDelete(const SStepRun& run) const
{
    IRuntimeControl& runtime = site.GetLibrary().GetRuntime();
    const auto isFree = [&](const QUuid& id) { return !runtime.IsDeleteBlocked(id) && !runtime.IsNodeInUse(id); };
    bool bFree = false;
    site.Ask(QStringLiteral("IsDeleteBlocked and IsNodeInUse"),
             [&] { bFree = isFree(run.id) && std::all_of(run.vecId.begin(), run.vecId.end(), isFree); });
    return bFree;
}

bool CStepRunner::ActOnHost(const SStep& step, SStepRun& run)
{
    IControlHost* pHost = site.GetLibrary().GetHost();
    if (!pHost || !pHost->IsSteerable()) {
        return false;
    }
    if (step.nFirst % 2 == 0) {
        run.bOn = !pHost->IsChiefMode();
        site.Call(QStringLiteral("the host switches Chief-Member mode"), [&] { pHost->SetChiefMode(run.bOn); });
    } else {
        run.strName = NewName();
        site.Call(QStringLiteral("the host opens the project \"%1\"").arg(run.strName), [&] { pHost->OpenProject(run.strName); });
    }
    return true;
}

// The first time there is nothing to import.
bool CStepRunner::ActOnFile(const SStep& step)
{
    const QString strPath = site.GetPath(QStringLiteral("step.kvtl"));
    if (step.nFirst % 2 == 1 && QFileInfo::exists(strPath)) {
        site.Import(strPath);
    } else {
        site.Export(strPath);
    }
    return true;
}

bool CStepRunner::ActOnStray(const SStep& step, SStepRun& run)
{
    run.id = FindStray(step, run);
    const QString strId = run.id.isNull() ? QStringLiteral("a null id")
        : run.id == idGone                ? QStringLiteral("the id of a deleted group")
                                          : QStringLiteral("an unknown id");
    StrayCalls::Make(site, step.nSecond, run.id, strId, run.before);
    return true;
}

QUuid CStepRunner::FindStray(const SStep& step, SStepRun& run)
{
    if (step.nFirst % 3 == 0) {
        return {};
    }
    if (step.nFirst % 3 == 1) {
        return QUuid::createUuid();
    }
    if (idGone.isNull() || Trees::FindPane(run.before, idGone) >= 0) {
        idGone = site.AddGroup(NewName());
        site.Read();
        site.DeleteGroup(idGone, false);
        run.before = site.Read();
    }
    // A library that has not deleted it breaks another promise.
    return Trees::FindPane(run.before, idGone) < 0 ? idGone : QUuid::createUuid();
}

QString CStepRunner::NewName()
{
    return QStringLiteral("Trial %1").arg(++nName);
}
