#include "CBenchPanel.h"

#include "CParentHost.h"
#include "data/CProcessorTreeData.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/ProcessorTreeViewInit.h"
#include "tree/CProcessorTree.h"

#include <QCoreApplication>
#include <QEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

constexpr int nMessageListChanged = 1;

SProcessorNode MakeProcessor(int nNumber)
{
    return Processor(QStringLiteral("Processor %1").arg(nNumber))
        .Online(nNumber % 4 != 3)
        .Failover(nNumber % 3)
        .Project(QStringLiteral("Project %1").arg(nNumber % 7))
        .Ip(0xC0A80000U + static_cast<quint32>(nNumber))
        .Type(12, QStringLiteral("KX-4"))
        .Expanded(false);
}

} // namespace

CBenchPanel::CBenchPanel(int nHeight)
{
    control.StopJournal(); // of the double's own time nothing is to be measured
    window.setStyleSheet(Sheet());
    CParentHost management(&window);
    CProcessorTreeView_Init(&pPanel, &management);
    auto* pLayout = new QVBoxLayout(&window);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pPanel->GetWidget());
    auto* pStack = pPanel->GetWidget()->findChild<QStackedLayout*>();
    pTree = qobject_cast<CProcessorTree*>(pStack->currentWidget());
    pTree->viewport()->installEventFilter(this);
    connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo, this, [this] { bTreeChanged = true; });
    window.resize(nWidth, nHeight);
    window.show();
    g_pProcessorTreeData->Refresh(); // the store outlives a panel: start from the empty list
    Settle();
    ResizeViewport(nHeight);
}

CBenchPanel::~CBenchPanel()
{
    delete pPanel;
}

QString CBenchPanel::Sheet()
{
    return QStringLiteral("#ProcessorTree{background:#1C1E21;border:none;outline:none;show-decoration-selected:1;"
                          "selection-background-color:transparent}"
                          "#ProcessorTree::item,#ProcessorTree::item:hover,#ProcessorTree::item:selected,"
                          "#ProcessorTree::branch,#ProcessorTree::branch:selected{background:transparent}");
}

SProcessorAllNode CBenchPanel::MakeGroupedTree(int nProcessors, int nGroups)
{
    QList<SProcessorGroupNode> listGroup;
    for (int i = 0; i < nGroups; ++i) {
        QList<SProcessorNode> listMember;
        for (int n = i; n < nProcessors; n += nGroups) {
            listMember.append(MakeProcessor(n));
        }
        listGroup.append(Group(QStringLiteral("Group %1").arg(i + 1), listMember).Expanded(i % 2 == 0));
    }
    return Root(listGroup);
}

SProcessorAllNode CBenchPanel::MakeMarkedTree(int nRows)
{
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < nRows - 1; ++i) {
        SProcessorNode node = MakeProcessor(i);
        node.bOnline = true;
        node.nFailover = 1 + i % 2;
        listProcessor.append(node);
    }
    return Root({}, listProcessor);
}

void CBenchPanel::SetTree(const SProcessorAllNode& node)
{
    nodeTree = node;
    control.Set([&node](SControlAnswers& answers) { answers.nodeDiscovered = node; });
    SendMessageAndWaitForPaint();
    Settle();
}

const SProcessorAllNode& CBenchPanel::Tree() const
{
    return nodeTree;
}

void CBenchPanel::SelectFirstProcessor()
{
    const QUuid id = nodeTree.listGroup.constFirst().listProcessor.constFirst().idNode;
    g_pProcessorTreeData->SetSelectedNodes({ id });
}

void CBenchPanel::SelectAll()
{
    std::vector<QUuid> vecId{ QUuid() };
    const auto fnAdd = [&vecId](const QList<SProcessorNode>& listProcessor) {
        for (const SProcessorNode& processor : listProcessor) {
            vecId.push_back(processor.idNode);
        }
    };
    for (const SProcessorGroupNode& group : std::as_const(nodeTree.listGroup)) {
        vecId.push_back(group.idNode);
        fnAdd(group.listProcessor);
    }
    fnAdd(nodeTree.listProcessor);
    g_pProcessorTreeData->SetSelectedNodes(vecId);
}

void CBenchPanel::ChangeOneProcessor()
{
    SProcessorNode& node = nodeTree.listGroup.first().listProcessor.first();
    node.bOnline = !node.bOnline;
    control.Set([this](SControlAnswers& answers) { answers.nodeDiscovered = nodeTree; });
}

void CBenchPanel::SendMessageAndWaitForPaint()
{
    bTreeChanged = false;
    bPainted = false;
    control.RaiseHere(nMessageListChanged);
    while (!bPainted) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void CBenchPanel::Settle()
{
    control.WaitForDelivery();
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

void CBenchPanel::Rebuild()
{
    pTree->RefreshTree();
    pTree->doItemsLayout();
}

int CBenchPanel::RowCount() const
{
    int nRows = 1;
    for (const SProcessorGroupNode& group : nodeTree.listGroup) {
        nRows += 1 + 2 * group.listProcessor.size();
    }
    return nRows + 2 * nodeTree.listProcessor.size();
}

CProcessorTree& CBenchPanel::View()
{
    return *pTree;
}

QWidget* CBenchPanel::Viewport() const
{
    return pTree->viewport();
}

bool CBenchPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && bTreeChanged) {
        bPainted = true; // the event loop returns to the waiting caller after the painting
    }
    return QObject::eventFilter(watched, event);
}

void CBenchPanel::ResizeViewport(int nHeight)
{
    window.resize(nWidth, window.height() + nHeight - pTree->viewport()->height());
    Settle();
}
