#include "tree/CRowReader.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "model/CProcessorTreeModel.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QSignalBlocker>
#include <QTreeView>

#include <utility>

namespace {

void WriteChanged(const QModelIndex& index, const QString& strWords, int nRole)
{
    if (index.data(nRole).toString() != strWords) {
        RowValue::Write(index, strWords, nRole);
    }
}

} // namespace

CRowReader::CRowReader(QTreeView& treeIn, CProcessorTreeModel& modelIn, bool bDiscoveredIn)
    : QObject(&treeIn), tree(treeIn), model(modelIn), bDiscovered(bDiscoveredIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    timerAnnounce.setSingleShot(true);
    connect(&timerAnnounce, &QTimer::timeout, this, &CRowReader::Announce);
    QAccessible::installActivationObserver(this);
    UpdateText();
    accessibilityActiveChanged(QAccessible::isActive());
}

CRowReader::~CRowReader()
{
    QAccessible::removeActivationObserver(this);
}

void CRowReader::Note()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bActive && !keyBefore && tree.hasFocus()) {
        keyBefore = SRowKey::Of(tree.currentIndex());
        wordsBefore = GetWords(tree.currentIndex());
    }
}

void CRowReader::Write()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (!bActive || g_pProcessorTreeData->IsSimulatorPane() == bDiscovered) {
        keyBefore.reset();
        return;
    }
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    const bool bChiefMode = g_pProcessorTreeData->IsChiefMode();
    const QSignalBlocker blocker(model); // the view would paint for what it does not show
    WriteRow({ NodeAll, QUuid() }, RowSpeech::All(node));
    for (const SProcessorGroupNode& group : std::as_const(node.listGroup)) {
        WriteRow({ NodeGroup, group.idNode }, RowSpeech::Group(group, bChiefMode));
        WriteMembers(group, bChiefMode);
    }
    for (const SProcessorNode& processor : std::as_const(node.listProcessor)) {
        WriteProcessor(processor, QString(), bChiefMode);
    }
    if (keyBefore) {
        keyAfter = SRowKey::Of(tree.currentIndex());
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
}

void CRowReader::NameEditor(QWidget* pEditor, const QModelIndex& index) const
{
    Q_ASSERT(GuiThread::IsCurrent());
    pEditor->setAccessibleName(RowSpeech::Editor(g_pProcessorTreeData->GetNodeName(RowValue::NodeId(index))));
}

void CRowReader::accessibilityActiveChanged(bool active)
{
    bActive = active;
    timerAnnounce.stop();
    keyBefore.reset();
    disconnect(connectionChief);
    if (active) {
        connectionChief
            = connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyChiefChanged, this, &CRowReader::DealChiefChanged);
        Write();
    }
}

void CRowReader::DealChiefChanged()
{
    Note();
    Write();
}

void CRowReader::WriteMembers(const SProcessorGroupNode& group, bool bChiefMode)
{
    for (const SProcessorNode& member : group.listProcessor) {
        WriteProcessor(member, group.strName, bChiefMode);
    }
}

void CRowReader::WriteProcessor(const SProcessorNode& node, const QString& strGroup, bool bChiefMode)
{
    WriteRow({ NodeProcessor, node.idNode }, RowSpeech::Processor(node, strGroup, bChiefMode));
    WriteRow({ NodeInfo, node.idNode }, RowSpeech::Info(node));
}

void CRowReader::WriteRow(const SRowKey& key, const RowSpeech::SWords& words)
{
    const QModelIndex index = model.FindRow(key); // a node whose row is still to come has none
    WriteChanged(index, words.strText, Qt::AccessibleTextRole);
    WriteChanged(index, words.strDescription, Qt::AccessibleDescriptionRole);
}

RowSpeech::SWords CRowReader::GetWords(const QModelIndex& index) const
{
    return { index.data(Qt::AccessibleTextRole).toString(), index.data(Qt::AccessibleDescriptionRole).toString() };
}

// The view announces a row to which the user has moved since.
void CRowReader::Announce()
{
    const SRowKey keyNoted = *std::exchange(keyBefore, std::nullopt);
    const QModelIndex index = tree.currentIndex();
    if (!tree.hasFocus() || !(SRowKey::Of(index) == keyAfter) || tree.visualRect(index).isEmpty()) {
        return;
    }
    const RowSpeech::SWords words = GetWords(index);
    if (!(keyNoted == keyAfter)) {
        Send(QAccessible::Focus, index);
        return;
    }
    if (words.strText != wordsBefore.strText) {
        Send(QAccessible::NameChanged, index);
    }
    if (words.strDescription != wordsBefore.strDescription) {
        Send(QAccessible::DescriptionChanged, index);
    }
}

// The children of a tree are its header and then the rows as they are shown.
void CRowReader::Send(QAccessible::Event event, const QModelIndex& index) const
{
    int nChild = 1;
    for (QModelIndex indexAbove = tree.indexAbove(index); indexAbove.isValid(); indexAbove = tree.indexAbove(indexAbove)) {
        ++nChild;
    }
    QAccessibleEvent eventRow(&tree, event);
    eventRow.setChild(nChild);
    QAccessible::updateAccessibility(&eventRow);
}
