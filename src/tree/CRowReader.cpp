#include "tree/CRowReader.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "model/CProcessorTreeModel.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QEvent>
#include <QHash>
#include <QSignalBlocker>
#include <QTreeView>

namespace {

/// The records of one pane by their ids. Of several with one id the first counts, which is the one that is painted.
struct SRecords
{
    SRecords(const SProcessorAllNode& node, bool bChiefModeIn) : bChiefMode(bChiefModeIn)
    {
        for (const SProcessorGroupNode& group : node.listGroup) {
            if (!hashGroup.contains(group.idNode)) {
                hashGroup.insert(group.idNode, &group);
            }
            AddProcessors(group.listProcessor);
        }
        AddProcessors(node.listProcessor);
    }

    void AddProcessors(const QList<SProcessorNode>& listProcessor)
    {
        for (const SProcessorNode& processor : listProcessor) {
            if (!hashProcessor.contains(processor.idNode)) {
                hashProcessor.insert(processor.idNode, &processor);
            }
        }
    }

    QHash<QUuid, const SProcessorGroupNode*> hashGroup;
    QHash<QUuid, const SProcessorNode*> hashProcessor;
    bool bChiefMode;
};

void WriteChanged(const QModelIndex& index, const QString& strWords, int nRole)
{
    if (index.data(nRole).toString() != strWords) {
        RowValue::Write(index, strWords, nRole);
    }
}

void WriteRow(const QModelIndex& index, const RowSpeech::SWords& words)
{
    WriteChanged(index, words.strText, Qt::AccessibleTextRole);
    WriteChanged(index, words.strDescription, Qt::AccessibleDescriptionRole);
}

void WriteProcessor(const QModelIndex& index, const QString& strGroup, const SRecords& records)
{
    if (const SProcessorNode* const pNode = records.hashProcessor.value(RowValue::NodeId(index))) {
        WriteRow(index, RowSpeech::Processor(*pNode, strGroup, records.bChiefMode));
        WriteRow(index.model()->index(0, 0, index), RowSpeech::Info(*pNode));
    }
}

void WriteGroup(const QModelIndex& index, const SRecords& records)
{
    if (const SProcessorGroupNode* const pGroup = records.hashGroup.value(RowValue::NodeId(index))) {
        WriteRow(index, RowSpeech::Group(*pGroup, records.bChiefMode));
        for (int nRow = 0; nRow < index.model()->rowCount(index); ++nRow) {
            WriteProcessor(index.model()->index(nRow, 0, index), pGroup->strName, records);
        }
    }
}

RowSpeech::SWords WordsOf(const QModelIndex& index)
{
    return { index.data(Qt::AccessibleTextRole).toString(), index.data(Qt::AccessibleDescriptionRole).toString() };
}

// The children of a tree are its header and then the rows as they are shown. Each call of child() makes a new object.
QAccessibleInterface* NewInterface(QTreeView& tree, const QModelIndex& index)
{
    int nChild = 1;
    for (QModelIndex indexAbove = tree.indexAbove(index); indexAbove.isValid(); indexAbove = tree.indexAbove(indexAbove)) {
        ++nChild;
    }
    QAccessibleInterface* const pTree = QAccessible::queryAccessibleInterface(&tree);
    return pTree ? pTree->child(nChild) : nullptr;
}

} // namespace

CRowReader::CRowReader(QTreeView& treeIn, CProcessorTreeModel& modelIn, bool bDiscoveredIn)
    : QObject(&treeIn), tree(treeIn), model(modelIn), bDiscovered(bDiscoveredIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    timerAnnounce.setSingleShot(true);
    connect(&timerAnnounce, &QTimer::timeout, this, &CRowReader::Announce);
    connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyChiefChanged, this, &CRowReader::Write);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, &CRowReader::NoteSaid);
    tree.installEventFilter(this);
    QAccessible::installActivationObserver(this);
    UpdateText();
    accessibilityActiveChanged(QAccessible::isActive());
}

CRowReader::~CRowReader()
{
    QAccessible::removeActivationObserver(this);
}

void CRowReader::Write()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (!bActive) {
        return;
    }
    SProcessorAllNode node;
    bDiscovered ? g_pProcessorTreeData->GetDiscoveredTree(node) : g_pProcessorTreeData->GetSimulatorTree(node);
    const SRecords records(node, g_pProcessorTreeData->IsChiefMode());
    const QModelIndex indexRoot = model.GetRootIndex();
    const QSignalBlocker blocker(model); // the view would paint for what it does not show
    WriteRow(indexRoot, RowSpeech::All(node));
    for (int nRow = 0; nRow < model.rowCount(indexRoot); ++nRow) {
        const QModelIndex index = model.index(nRow, 0, indexRoot);
        if (RowValue::NodeType(index) == NodeGroup) {
            WriteGroup(index, records);
        } else {
            WriteProcessor(index, QString(), records);
        }
    }
    Follow();
}

void CRowReader::Follow()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bActive && tree.hasFocus()) {
        timerAnnounce.start(0);
    }
}

void CRowReader::UpdateText()
{
    const QString strName = RowSpeech::Tree(bDiscovered);
    if (tree.accessibleName() != strName) { // a name that is set again is announced again
        tree.setAccessibleName(strName);
    }
    Write();
    NoteSaid();
}

void CRowReader::accessibilityActiveChanged(bool active)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (active == bActive) {
        return;
    }
    bActive = active;
    Write();
    NoteSaid(); // a reader that comes asks by itself
    timerAnnounce.stop();
}

// An editor that closes gives the focus to the tree before it ends. Once it has ended, Qt gives its number to the next
// object that is made, and screen readers would take that for the editor: one is made for nobody while it still lives.
bool CRowReader::eventFilter(QObject* watched, QEvent* event)
{
    if (bActive && watched == &tree && event->type() == QEvent::FocusIn) {
        NewInterface(tree, tree.currentIndex());
        said = SSaid(); // Qt announces the tree, behind this event
        timerAnnounce.start(0);
    }
    return QObject::eventFilter(watched, event);
}

// The view announces each new current row. With no current row, as between two halves of a change, what was said
// last still stands.
void CRowReader::NoteSaid()
{
    if (bActive && tree.currentIndex().isValid()) {
        said = { SRowKey::Of(tree.currentIndex()), WordsOf(tree.currentIndex()) };
    }
}

bool CRowReader::IsSaid() const
{
    const RowSpeech::SWords words = WordsOf(tree.currentIndex());
    return said.key == SRowKey::Of(tree.currentIndex()) && said.words.strText == words.strText
        && said.words.strDescription == words.strDescription;
}

void CRowReader::Announce()
{
    const QModelIndex index = tree.currentIndex();
    if (!tree.hasFocus() || tree.visualRect(index).isEmpty() || IsSaid()) {
        return;
    }
    NoteSaid();
    if (QAccessibleInterface* const pRow = NewInterface(tree, index)) {
        QAccessibleEvent event(pRow, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}
