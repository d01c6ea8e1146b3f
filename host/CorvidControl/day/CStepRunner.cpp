#include "CorvidControl/day/CStepRunner.h"

#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/CDeviceTypes.h"
#include "CorvidControl/devices/CSimulatedNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"

#include <QJsonArray>

namespace {

constexpr double dBootSeconds = 2;
constexpr qint32 nPrimary = 1;
constexpr qint32 nBackup = 2;

QString GetNotThere(const QString& strText)
{
    return QStringLiteral("\"%1\" is not in the list").arg(strText);
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
                         CSimulatedNetwork& networkIn, quint32 nSeed)
    : processors(processorsIn), host(hostIn), commands(commandsIn), network(networkIn), random(nSeed)
{ }

bool CStepRunner::IsBlocking(const SScenarioStep& step)
{
    return step.strDo == QLatin1String("scan") || step.strDo == QLatin1String("add-processor")
        || step.strDo == QLatin1String("delete");
}

QString CStepRunner::Run(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow)
{
    const Action action = GetActions().value(step.strDo);
    return (this->*action)(step, vecFollow);
}

const QMap<QString, CStepRunner::Action>& CStepRunner::GetActions()
{
    static const QMap<QString, Action> mapAction{
        { QStringLiteral("offline"), &CStepRunner::RunDevice },     { QStringLiteral("online"), &CStepRunner::RunDevice },
        { QStringLiteral("boot"), &CStepRunner::RunDevice },        { QStringLiteral("role"), &CStepRunner::RunDevice },
        { QStringLiteral("project"), &CStepRunner::RunDevice },     { QStringLiteral("fail-over"), &CStepRunner::RunFailOver },
        { QStringLiteral("chief"), &CStepRunner::RunChief },        { QStringLiteral("chief-mode"), &CStepRunner::RunHost },
        { QStringLiteral("open-project"), &CStepRunner::RunHost },  { QStringLiteral("close-project"), &CStepRunner::RunHost },
        { QStringLiteral("lock"), &CStepRunner::RunHost },          { QStringLiteral("block-refresh"), &CStepRunner::RunHost },
        { QStringLiteral("rename"), &CStepRunner::RunNode },        { QStringLiteral("move"), &CStepRunner::RunNode },
        { QStringLiteral("expand"), &CStepRunner::RunNode },        { QStringLiteral("delete"), &CStepRunner::RunNode },
        { QStringLiteral("select"), &CStepRunner::RunSelect },      { QStringLiteral("pane"), &CStepRunner::RunSelect },
        { QStringLiteral("add-group"), &CStepRunner::RunAdd },      { QStringLiteral("add-processor"), &CStepRunner::RunAdd },
        { QStringLiteral("add-simulators"), &CStepRunner::RunAdd }, { QStringLiteral("appear"), &CStepRunner::RunNetwork },
        { QStringLiteral("silent"), &CStepRunner::RunNetwork },     { QStringLiteral("scan"), &CStepRunner::RunNetwork },
        { QStringLiteral("storm"), &CStepRunner::RunStorm },
    };
    return mapAction;
}

QString CStepRunner::RunDevice(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow)
{
    const QUuid id = Find(step, "node");
    if (FindProcessor(id).idNode.isNull()) {
        return GetNotThere(step.GetText("node"));
    }
    if (step.strDo == QLatin1String("role")) {
        network.SetRole(id, ReadRole(step.GetText("role")));
    } else if (step.strDo == QLatin1String("project")) {
        network.SetProject(id, step.GetText("project"));
    } else {
        network.SetOnline(id, step.strDo == QLatin1String("online"));
    }
    if (step.strDo == QLatin1String("boot")) {
        vecFollow.append(BuildLater(step, QStringLiteral("online"), step.GetNumber("for", dBootSeconds)));
    }
    return {};
}

QString CStepRunner::RunFailOver(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    const SProcessorNode processor = FindProcessor(Find(step, "node"));
    if (processor.idNode.isNull()) {
        return GetNotThere(step.GetText("node"));
    }
    const QUuid idPartner = step.keys.contains(QLatin1String("with")) ? Find(step, "with") : FindPartner(processor);
    const SProcessorNode partner = FindProcessor(idPartner);
    if (partner.idNode.isNull()) {
        return QStringLiteral("\"%1\" has no other half").arg(processor.strName);
    }
    network.SetRole(processor.idNode, partner.nFailover);
    network.SetRole(partner.idNode, processor.nFailover);
    return {};
}

QString CStepRunner::RunChief(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    const QUuid idGroup = Find(step, "group");
    const QUuid idChief = Find(step, "node");
    if (idGroup.isNull()) {
        return GetNotThere(step.GetText("group"));
    }
    if (idChief.isNull() && step.keys.contains(QLatin1String("node"))) {
        return GetNotThere(step.GetText("node"));
    }
    processors.SetChief(idGroup, idChief);
    return {};
}

QString CStepRunner::RunHost(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    if (step.strDo == QLatin1String("chief-mode")) {
        host.SetChiefMode(step.IsOn());
    } else if (step.strDo == QLatin1String("lock")) {
        host.SetLocked(step.IsOn());
    } else if (step.strDo == QLatin1String("block-refresh")) {
        host.SetRefreshBlocked(step.IsOn());
    } else {
        host.SetProject(step.GetText("project"));
    }
    return {};
}

QString CStepRunner::RunNode(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    const QUuid id = Find(step, "node");
    const QUuid idGroup = Find(step, "group");
    if (id.isNull() && step.keys.contains(QLatin1String("node"))) {
        return GetNotThere(step.GetText("node"));
    }
    if (idGroup.isNull() && step.keys.contains(QLatin1String("group"))) {
        return GetNotThere(step.GetText("group"));
    }
    if (step.strDo == QLatin1String("rename")) {
        processors.RenameNode(id, step.GetText("name"));
    } else if (step.strDo == QLatin1String("move")) {
        processors.MoveProcessor(id, idGroup);
    } else if (step.strDo == QLatin1String("expand")) {
        processors.SetExpanded(id, step.IsOn());
    } else if (FindProcessor(id).idNode.isNull()) {
        commands.DeleteGroup(id, true);
    } else {
        commands.Delete(id);
    }
    return {};
}

QString CStepRunner::RunSelect(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    if (step.strDo == QLatin1String("pane")) {
        processors.SetSimulatorPane(step.GetText("pane") == QLatin1String("simulator"));
        return {};
    }
    std::vector<QUuid> vecId;
    const QJsonArray arrayNode = step.keys.value(QLatin1String("nodes")).toArray();
    for (int n = 0; n < arrayNode.size(); ++n) {
        const QString strName = arrayNode.at(n).toString();
        vecId.push_back(FindText(strName));
        if (vecId.back().isNull()) {
            return GetNotThere(strName);
        }
    }
    if (vecId.empty()) {
        vecId.push_back(QUuid());
    }
    return processors.SetSelection(vecId) ? QString() : QStringLiteral("none of the nodes is in the current pane");
}

QString CStepRunner::RunAdd(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    if (step.strDo == QLatin1String("add-group")) {
        SProcessorGroupNode group;
        group.idNode = QUuid::createUuid();
        group.strName = step.GetText("name");
        processors.AddGroup(group);
    } else if (step.strDo == QLatin1String("add-simulators")) {
        SSimulatorRequest request;
        request.nType = CDeviceTypes::nStandard;
        request.nCount = static_cast<qint32>(step.GetNumber("count", 1));
        commands.AddSimulators(request);
    } else {
        commands.Add(CScenario::ReadAddress(step));
    }
    return {};
}

QString CStepRunner::RunNetwork(const SScenarioStep& step, QVector<SScenarioStep>& /*vecFollow*/)
{
    if (step.strDo == QLatin1String("appear")) {
        network.Appear(CScenario::ReadAddress(step), step.GetText("name"));
    } else if (step.strDo == QLatin1String("silent")) {
        network.Silence(CScenario::ReadAddress(step));
    } else {
        commands.Scan();
    }
    return {};
}

// One change now, and the rest of the storm a little later.
QString CStepRunner::RunStorm(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow)
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
    vecFollow.append(stepLater);
    return {};
}

QString CStepRunner::GetText(const SScenarioStep& step) const
{
    // A quiet day names its nodes by their ids.
    const QString strName = FindProcessor(Find(step, "node")).strName;
    QStringList listWord{ step.strDo, strName.isEmpty() ? step.GetText("node") : strName };
    for (const char* pKey : { "group", "role", "project", "name", "pane", "ip" }) {
        listWord.append(step.GetText(pKey));
    }
    if (step.keys.contains(QLatin1String("on"))) {
        listWord.append(step.IsOn() ? QStringLiteral("on") : QStringLiteral("off"));
    }
    listWord.removeAll(QString());
    return listWord.join(QLatin1Char(' '));
}

QUuid CStepRunner::Find(const SScenarioStep& step, const char* pKey) const
{
    return FindText(step.GetText(pKey));
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
