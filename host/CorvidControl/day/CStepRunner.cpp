#include "CorvidControl/day/CStepRunner.h"

#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/day/StepVerbs.h"
#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/CSimulatedNetwork.h"
#include "CorvidControl/devices/DeviceTypes.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"

#include <QJsonArray>

namespace {

constexpr double dBootSeconds = 2;
constexpr qint32 nPrimary = 1;
constexpr qint32 nBackup = 2;

SStepResult BuildFault(const QString& strFault)
{
    return { strFault, {} };
}

qint32 ReadRole(const QString& strRole)
{
    return strRole == QLatin1String("primary") ? nPrimary : strRole == QLatin1String("backup") ? nBackup : 0;
}

SScenarioStep BuildLater(const SScenarioStep& step, const QString& strDo, double dSeconds)
{
    SScenarioStep stepLater = step;
    stepLater.strDo = strDo;
    stepLater.nAt += qRound64(dSeconds * 1000);
    return stepLater;
}

} // namespace

CStepRunner::CStepRunner(CProcessorList& processorsIn, CHostState& hostIn, CDeviceCommands& commandsIn,
                         CSimulatedNetwork& networkIn, CMessageDispatcher& dispatcherIn, CFaults& faultsIn, quint32 nSeed)
    : processors(processorsIn), host(hostIn), commands(commandsIn), network(networkIn), dispatcher(dispatcherIn),
      faults(faultsIn), random(nSeed)
{ }

bool CStepRunner::IsBlocking(const SScenarioStep& step)
{
    const SStepVerb* pVerb = StepVerbs::Find(step.strDo);
    Q_ASSERT(pVerb);
    return pVerb->bBlocking;
}

SStepResult CStepRunner::Run(const SScenarioStep& step)
{
    const SStepVerb* pVerb = StepVerbs::Find(step.strDo);
    Q_ASSERT(pVerb);
    return (this->*pVerb->action)(step);
}

SStepResult CStepRunner::TakeOffline(const SScenarioStep& step)
{
    return ChangeDevice(step, [this](const QUuid& id) { network.SetOnline(id, false); });
}

SStepResult CStepRunner::TakeOnline(const SScenarioStep& step)
{
    return ChangeDevice(step, [this](const QUuid& id) { network.SetOnline(id, true); });
}

SStepResult CStepRunner::Boot(const SScenarioStep& step)
{
    SStepResult result = TakeOffline(step);
    if (result.strFault.isEmpty()) {
        result.vecFollow.append(BuildLater(step, QStringLiteral("online"), step.GetNumber("for", dBootSeconds)));
    }
    return result;
}

SStepResult CStepRunner::SetRole(const SScenarioStep& step)
{
    return ChangeDevice(step, [&](const QUuid& id) { network.SetRole(id, ReadRole(step.GetText("role"))); });
}

SStepResult CStepRunner::FailOver(const SScenarioStep& step)
{
    const SProcessorNode processor = FindProcessor(Find(step, "node"));
    if (processor.idNode.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    const QUuid idPartner = step.Has("with") ? Find(step, "with") : FindPartner(processor);
    const SProcessorNode partner = FindProcessor(idPartner);
    if (partner.idNode.isNull()) {
        return BuildFault(QStringLiteral("\"%1\" has no other half").arg(processor.strName));
    }
    network.SetRole(processor.idNode, partner.nFailover);
    network.SetRole(partner.idNode, processor.nFailover);
    return {};
}

SStepResult CStepRunner::SetProject(const SScenarioStep& step)
{
    return ChangeDevice(step, [&](const QUuid& id) { network.SetProject(id, step.GetText("project")); });
}

SStepResult CStepRunner::SetChief(const SScenarioStep& step)
{
    const QUuid idGroup = Find(step, "group");
    const QUuid idChief = Find(step, "node");
    if (idGroup.isNull()) {
        return BuildNotThere(step.GetText("group"));
    }
    if (idChief.isNull() && step.Has("node")) {
        return BuildNotThere(step.GetText("node"));
    }
    processors.SetChief(idGroup, idChief);
    return {};
}

SStepResult CStepRunner::SetChiefMode(const SScenarioStep& step)
{
    host.SetChiefMode(step.IsOn());
    return {};
}

SStepResult CStepRunner::OpenProject(const SScenarioStep& step)
{
    host.SetProject(step.GetText("project"));
    return {};
}

SStepResult CStepRunner::CloseProject(const SScenarioStep& /*step*/)
{
    host.SetProject({});
    return {};
}

SStepResult CStepRunner::LockList(const SScenarioStep& step)
{
    host.SetLocked(step.IsOn());
    return {};
}

SStepResult CStepRunner::BlockRefresh(const SScenarioStep& step)
{
    host.SetRefreshBlocked(step.IsOn());
    return {};
}

SStepResult CStepRunner::Rename(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    if (id.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    processors.RenameNode(id, step.GetText("name"), OriginLibrary);
    return {};
}

SStepResult CStepRunner::Move(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    const QUuid idGroup = Find(step, "group");
    if (id.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    if (idGroup.isNull() && step.Has("group")) {
        return BuildNotThere(step.GetText("group"));
    }
    processors.MoveProcessor(id, idGroup, OriginLibrary);
    return {};
}

SStepResult CStepRunner::Expand(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    if (id.isNull() && step.Has("node")) {
        return BuildNotThere(step.GetText("node"));
    }
    processors.SetExpanded(id, step.IsOn());
    return {};
}

SStepResult CStepRunner::Select(const SScenarioStep& step)
{
    std::vector<QUuid> vecId;
    const QJsonArray arrayNode = step.keys.value(QLatin1String("nodes")).toArray();
    for (int n = 0; n < arrayNode.size(); ++n) {
        const QString strName = arrayNode.at(n).toString();
        vecId.push_back(FindText(strName));
        if (vecId.back().isNull()) {
            return BuildNotThere(strName);
        }
    }
    if (vecId.empty()) {
        vecId.push_back(QUuid());
    }
    return processors.SetSelection(vecId) ? SStepResult()
                                          : BuildFault(QStringLiteral("none of the nodes is in the current pane"));
}

SStepResult CStepRunner::SetPane(const SScenarioStep& step)
{
    processors.SetSimulatorPane(step.GetText("pane") == QLatin1String("simulator"));
    return {};
}

SStepResult CStepRunner::AddGroup(const SScenarioStep& step)
{
    SProcessorGroupNode group;
    group.idNode = QUuid::createUuid();
    group.strName = step.GetText("name");
    processors.AddGroup(group, OriginLibrary);
    return {};
}

SStepResult CStepRunner::AddProcessor(const SScenarioStep& step)
{
    commands.Add(CScenario::ReadAddress(step), OriginLibrary);
    return {};
}

SStepResult CStepRunner::AddSimulators(const SScenarioStep& step)
{
    SSimulatorRequest request;
    request.nType = DeviceTypes::nStandard;
    request.nCount = static_cast<qint32>(step.GetNumber("count", 1));
    commands.AddSimulators(request, OriginLibrary);
    return {};
}

SStepResult CStepRunner::Delete(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    if (id.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    if (FindProcessor(id).idNode.isNull()) {
        commands.DeleteGroup(id, true, OriginLibrary);
    } else {
        commands.Delete(id, OriginLibrary);
    }
    return {};
}

SStepResult CStepRunner::Appear(const SScenarioStep& step)
{
    network.Appear(CScenario::ReadAddress(step), step.GetText("name"));
    return {};
}

SStepResult CStepRunner::Silence(const SScenarioStep& step)
{
    network.Silence(CScenario::ReadAddress(step));
    return {};
}

SStepResult CStepRunner::Scan(const SScenarioStep& /*step*/)
{
    commands.Scan(OriginLibrary);
    return {};
}

// One change now, and the rest of the storm a little later.
SStepResult CStepRunner::Storm(const SScenarioStep& step)
{
    const double dGap = 1 / step.GetNumber("rate", 1);
    const double dLeft = step.GetNumber("for", 0) - dGap;
    Disturb();
    if (dLeft < 0) {
        return {};
    }
    SScenarioStep stepLater = step;
    stepLater.nAt += std::max<qint64>(1, qRound64(dGap * 1000));
    stepLater.keys.insert(QStringLiteral("for"), dLeft);
    return { {}, { stepLater } };
}

QString CStepRunner::GetText(const SScenarioStep& step) const
{
    // A quiet day names its nodes by their ids.
    const QString strName = FindProcessor(Find(step, "node")).strName;
    QStringList listWord{ step.strDo, strName.isEmpty() ? step.GetText("node") : strName };
    for (const char* szKey : { "group", "role", "project", "name", "pane", "ip", "call", "command" }) {
        listWord.append(step.GetText(szKey));
    }
    if (step.Has("on")) {
        listWord.append(step.IsOn() ? QStringLiteral("on") : QStringLiteral("off"));
    }
    listWord.removeAll(QString());
    return listWord.join(QLatin1Char(' '));
}

SStepResult CStepRunner::ChangeDevice(const SScenarioStep& step, const std::function<void(const QUuid& id)>& change) const
{
    const QUuid id = Find(step, "node");
    if (FindProcessor(id).idNode.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    change(id);
    return {};
}

SStepResult CStepRunner::BuildNotThere(const QString& strText)
{
    return BuildFault(QStringLiteral("\"%1\" is not in the list").arg(strText));
}

QUuid CStepRunner::Find(const SScenarioStep& step, const char* szKey) const
{
    return FindText(step.GetText(szKey));
}

QUuid CStepRunner::FindText(const QString& strText) const
{
    const QUuid id(strText);
    return processors.GetNodeType(id) != 0 && !id.isNull() ? id : processors.FindByName(strText);
}

// A default-built record when there is none.
SProcessorNode CStepRunner::FindProcessor(const QUuid& id) const
{
    for (const bool bSimulator : { false, true }) {
        const CNodeTree tree = processors.CopyTree(bSimulator);
        const std::optional<SNodePlace> place = tree.FindProcessor(id);
        if (place) {
            return tree.GetProcessor(*place);
        }
    }
    return {};
}

QUuid CStepRunner::FindPartner(const SProcessorNode& processor) const
{
    const CNodeTree tree = processors.CopyTree(false);
    const std::optional<SNodePlace> place = tree.FindProcessor(processor.idNode);
    const int nRole = processor.nFailover == nPrimary ? nBackup : nPrimary;
    QList<SProcessorNode> listNear = tree.GetProcessors();
    if (place && place->nGroup >= 0) {
        listNear = tree.GetGroup(place->nGroup).listProcessor + listNear;
    }
    for (const SProcessorNode& other : std::as_const(listNear)) {
        if (processor.nFailover != 0 && other.nFailover == nRole && other.strProject == processor.strProject) {
            return other.idNode;
        }
    }
    return {};
}

void CStepRunner::Disturb()
{
    const QList<SProcessorNode> listProcessor = processors.CopyTree(false).GetProcessors();
    if (listProcessor.isEmpty()) {
        return;
    }
    const auto pick = [&](const QList<SProcessorNode>& list) { return list.at(static_cast<int>(random() % list.size())); };
    const SProcessorNode processor = pick(listProcessor);
    if (random() % 4 == 0) {
        network.SetProject(processor.idNode, pick(listProcessor).strProject);
    } else {
        network.SetOnline(processor.idNode, !processor.bOnline);
    }
}
