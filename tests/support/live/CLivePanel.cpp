#include "live/CLivePanel.h"

#include "CParentHost.h"
#include "Patience.h"
#include "data/CProcessorTreeData.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/ProcessorTreeViewInit.h"
#include "live/CWorkerFinder.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QEvent>
#include <QStackedLayout>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>

namespace {

bool AreEqual(const SProcessorAllNode& first, const SProcessorAllNode& second)
{
    return first.bExpanded == second.bExpanded && first.listGroup == second.listGroup
        && first.listProcessor == second.listProcessor;
}

bool IsSnapshotFresh()
{
    SProcessorAllNode discovered, simulator, discoveredKept, simulatorKept;
    g_pPrcListControl->GetDiscoveredTree(discovered);
    g_pPrcListControl->GetSimulatorTree(simulator);
    g_pProcessorTreeData->GetDiscoveredTree(discoveredKept);
    g_pProcessorTreeData->GetSimulatorTree(simulatorKept);
    return AreEqual(discovered, discoveredKept) && AreEqual(simulator, simulatorKept);
}

bool IsRowOf(const QTreeView* pTree, const QModelIndex& index, const QUuid& id, bool bExpanded)
{
    return index.data(RoleNodeId).value<QUuid>() == id && pTree->isExpanded(index) == bExpanded;
}

bool AreRowsOf(const QTreeView* pTree, const QModelIndex& indexParent, int nFirst, const QList<SProcessorNode>& listProcessor)
{
    for (int n = 0; n < listProcessor.size(); ++n) {
        const QModelIndex index = pTree->model()->index(nFirst + n, 0, indexParent);
        if (!IsRowOf(pTree, index, listProcessor.at(n).idNode, listProcessor.at(n).bExpanded)) {
            return false;
        }
    }
    return pTree->model()->rowCount(indexParent) == nFirst + listProcessor.size();
}

bool AreRowsOf(const QTreeView* pTree, const SProcessorAllNode& node)
{
    const QModelIndex indexRoot = pTree->model()->index(0, 0);
    for (int n = 0; n < node.listGroup.size(); ++n) {
        const SProcessorGroupNode& group = node.listGroup.at(n);
        const QModelIndex index = pTree->model()->index(n, 0, indexRoot);
        if (!IsRowOf(pTree, index, group.idNode, group.bExpanded && !group.listProcessor.isEmpty())
            || !AreRowsOf(pTree, index, 0, group.listProcessor)) {
            return false;
        }
    }
    return AreRowsOf(pTree, indexRoot, node.listGroup.size(), node.listProcessor);
}

std::vector<QUuid> Sorted(std::vector<QUuid> vecId)
{
    std::sort(vecId.begin(), vecId.end());
    return vecId;
}

std::vector<QUuid> FindSelectedRows(const QTreeView* pTree)
{
    std::vector<QUuid> vecId;
    const QModelIndexList listIndex = pTree->selectionModel()->selectedIndexes();
    for (const QModelIndex& index : listIndex) {
        if (index.data(RoleNodeType).toInt() != NodeInfo) {
            vecId.push_back(index.data(RoleNodeId).value<QUuid>());
        }
    }
    return vecId;
}

} // namespace

CLivePanel::CLivePanel()
{
    Create();
    GetTree()->viewport()->installEventFilter(this);
    connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo, this, [this] { bUnpainted = true; });
    watch.AttachAll();
    window.resize(320, 800);
    window.show();
}

CLivePanel::~CLivePanel()
{
    watch.DetachAll();
    delete pPanel;
}

void CLivePanel::Create()
{
    CParentHost host(&window);
    const CWorkerFinder finder;
    CProcessorTreeView_Init(&pPanel, &host);
    watch.SetWorker(finder.GetWorker());
    auto* pLayout = new QVBoxLayout(&window);
    pLayout->addWidget(pPanel->GetWidget());
}

bool CLivePanel::ShowsLibrary() const
{
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    return !bUnpainted && IsSnapshotFresh() && AreRowsOf(GetTree(), node)
        && HasSelected(g_pRuntimeControl->GetSelectedNodes(g_pRuntimeControl->IsSimulatorPane()));
}

bool CLivePanel::Settle()
{
    int nBefore = 0;
    do {
        nBefore = watch.GetCount();
        if (!Flush()) {
            return false;
        }
    } while (watch.GetCount() != nBefore);
    return true;
}

// What was raised before the mark comes before it.
bool CLivePanel::Flush()
{
    g_pRuntimeControl->PostMessage(++nMark);
    const bool bServed = QTest::qWaitFor([this] { return watch.HasCome(nMark) && watch.GetQueued() == 0; }, nPatience);
    QCoreApplication::processEvents();
    return bServed;
}

bool CLivePanel::HasSelected(const std::vector<QUuid>& vecId) const
{
    const std::vector<QUuid> vecWanted = Sorted(vecId);
    return Sorted(FindSelectedRows(GetTree())) == vecWanted && Sorted(g_pProcessorTreeData->GetSelectedNodes()) == vecWanted
        && Sorted(g_pRuntimeControl->GetSelectedNodes(g_pRuntimeControl->IsSimulatorPane())) == vecWanted;
}

QTreeView* CLivePanel::GetTree() const
{
    return qobject_cast<QTreeView*>(pPanel->GetWidget()->findChild<QStackedLayout*>()->currentWidget());
}

bool CLivePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        bUnpainted = false;
    }
    return QObject::eventFilter(watched, event);
}
