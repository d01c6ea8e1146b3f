#include "play/WorldEvents.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QList<QUuid> GetNodes(const SPanelPicture& picture, bool bGroups, bool bProcessors)
{
    QList<QUuid> listId;
    for (const SProcessorAllNode& node : picture.arrTree) {
        QList<SProcessorNode> listProcessor = node.listProcessor;
        for (const SProcessorGroupNode& group : node.listGroup) {
            listProcessor += group.listProcessor;
            if (bGroups) {
                listId.append(group.idNode);
            }
        }
        for (const SProcessorNode& processor : std::as_const(listProcessor)) {
            if (bProcessors) {
                listId.append(processor.idNode);
            }
        }
    }
    return listId;
}

QString Pick(const QList<QUuid>& listId, int nNumber)
{
    return listId.isEmpty() ? QStringLiteral("nobody") : listId.at(nNumber % listId.size()).toString();
}

QString PickNode(const SScene& scene, int nNumber)
{
    return Pick(GetNodes(scene.before, true, true), nNumber);
}

QString PickProcessor(const SScene& scene, int nNumber)
{
    return Pick(GetNodes(scene.before, false, true), nNumber);
}

QString PickGroup(const SScene& scene, int nNumber)
{
    return Pick(GetNodes(scene.before, true, false), nNumber);
}

// One whose node is not there is passed over, as a scenario's is.
void Take(SScene& scene, const QString& strDo, QJsonObject keys)
{
    keys.insert(QStringLiteral("do"), strDo);
    scene.vecFollow += scene.panel.library.runner.Run({ 0, strDo, keys }).vecFollow;
}

void ChangeDevice(SScene& scene, int nFirst, int nSecond)
{
    const QString strNode = PickProcessor(scene, nSecond);
    static constexpr const char* arrRole[] = { "none", "primary", "backup" };
    switch (nFirst % 8) {
    case 0:
        Take(scene, QStringLiteral("offline"), { { "node", strNode } });
        break;
    case 1:
        Take(scene, QStringLiteral("online"), { { "node", strNode } });
        break;
    case 2:
        Take(scene, QStringLiteral("role"), { { "node", strNode }, { "role", arrRole[nFirst / 8 % 3] } });
        break;
    case 3:
        Take(scene, QStringLiteral("project"), { { "node", strNode }, { "project", nFirst % 4 == 3 ? "Show" : "" } });
        break;
    case 4:
        Take(scene, QStringLiteral("fail-over"), { { "node", strNode } });
        break;
    case 5:
        Take(scene, QStringLiteral("boot"), { { "node", strNode } });
        break;
    case 6:
        Take(scene, QStringLiteral("storm"), { { "rate", 10 }, { "for", nSecond / 40.0 } });
        break;
    default:
        Take(scene, QStringLiteral("chief"), { { "group", PickGroup(scene, nFirst / 8) }, { "node", strNode } });
    }
}

void ChangeHost(SScene& scene, int nFirst, int nSecond)
{
    const bool bOn = nSecond % 4 == 0; // most are released soon
    switch (nFirst % 5) {
    case 0:
        Take(scene, QStringLiteral("lock"), { { "on", bOn } });
        break;
    case 1:
        Take(scene, QStringLiteral("block-refresh"), { { "on", bOn } });
        break;
    case 2:
        Take(scene, QStringLiteral("chief-mode"), { { "on", bOn } });
        break;
    case 3:
        Take(scene, QStringLiteral("open-project"), { { "project", "Show" } });
        break;
    default:
        Take(scene, QStringLiteral("close-project"), {});
    }
}

// The same nodes in another order would be a change to the library that is none to what is expected.
void Select(SScene& scene, int nFirst, int nSecond)
{
    NodeIds setId;
    QJsonArray arrayNode;
    for (int n = 0; n < 1 + nFirst / 10 % 3; ++n) {
        const QString strNode = PickNode(scene, nSecond + 2 * n);
        if (!setId.contains(QUuid(strNode))) {
            arrayNode.append(strNode);
        }
        setId.insert(QUuid(strNode));
    }
    if (setId != scene.Expected().GetStored()) {
        scene.Expected().SelectInLibrary(setId);
        Take(scene, QStringLiteral("select"), { { "nodes", arrayNode } });
    }
}

void ChangeTree(SScene& scene, int nFirst, int nSecond)
{
    switch (nFirst % 4) {
    case 0:
        Take(scene, QStringLiteral("move"),
             { { "node", PickProcessor(scene, nSecond) }, { "group", PickGroup(scene, nFirst / 4) } });
        break;
    case 1:
        Take(scene, QStringLiteral("move"), { { "node", PickProcessor(scene, nSecond) } });
        break;
    case 2:
        Take(scene, QStringLiteral("expand"), { { "node", PickNode(scene, nSecond) }, { "on", nFirst / 4 % 2 == 0 } });
        break;
    default:
        Take(scene, QStringLiteral("rename"),
             { { "node", PickNode(scene, nSecond) }, { "name", QStringLiteral("Name %1").arg(nFirst) } });
    }
}

// Who stands in the network, and who looks for it in place of the user.
void ChangeNetwork(SScene& scene, int nFirst, int nSecond)
{
    const QString strIp = QStringLiteral("10.0.2.%1").arg(1 + nSecond);
    switch (nFirst % 4) {
    case 0:
        Take(scene, QStringLiteral("appear"), { { "ip", strIp }, { "name", QStringLiteral("Found %1").arg(nSecond) } });
        break;
    case 1:
        Take(scene, QStringLiteral("silent"), { { "ip", strIp } });
        break;
    case 2:
        Take(scene, QStringLiteral("scan"), {});
        break;
    default:
        Take(scene, QStringLiteral("add-processor"), { { "ip", strIp } });
    }
}

// What others do to the list.
void EditList(SScene& scene, int nFirst, int nSecond)
{
    switch (nFirst % 9) {
    case 0:
    case 1:
        Select(scene, nFirst, nSecond);
        break;
    case 2:
        Take(scene, QStringLiteral("add-group"), { { "name", QStringLiteral("Group of %1").arg(nSecond) } });
        break;
    case 3:
        Take(scene, QStringLiteral("delete"), { { "node", PickNode(scene, nSecond) } });
        break;
    case 4:
        Take(scene, QStringLiteral("add-simulators"), { { "count", 1 + nSecond % 2 } });
        break;
    default:
        ChangeTree(scene, nFirst % 9 - 5 + nFirst / 9 * 4, nSecond);
    }
}

void BreakSomething(SScene& scene, int nFirst, int nSecond)
{
    scene.faults.Arm(scene.panel.library, nFirst, nSecond, PickNode(scene, nSecond), PickNode(scene, nSecond + 1));
}

} // namespace

void WorldEvents::GoOn(SScene& scene)
{
    if (!scene.vecFollow.isEmpty()) {
        const SScenarioStep step = scene.vecFollow.takeFirst();
        scene.vecFollow += scene.panel.library.runner.Run(step).vecFollow;
    }
}

std::vector<SVerb> WorldEvents::GetVerbs()
{
    return {
        { "device", 6, &ChangeDevice }, { "host", 3, &ChangeHost },      { "network", 2, &ChangeNetwork },
        { "edit", 8, &EditList },       { "fault", 4, &BreakSomething },
    };
}
