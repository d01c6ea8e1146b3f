#include "CTreeFixture.h"

#include "CUserHand.h"
#include "data/CProcessorTreeData.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QtTest>

namespace {

const char* const szStyleSheet = "#ProcessorTree { background: #1C1E21; border: none; outline: none; show-decoration-selected: 1;"
                                 "  selection-background-color: transparent; }"
                                 "#ProcessorTree::item, #ProcessorTree::item:hover, #ProcessorTree::item:selected,"
                                 "#ProcessorTree::branch, #ProcessorTree::branch:selected { background: transparent; }";

QModelIndex Find(const QAbstractItemModel* pModel, const QModelIndex& indexParent, const QUuid& id)
{
    for (int i = 0; i < pModel->rowCount(indexParent); ++i) {
        const QModelIndex index = pModel->index(i, 0, indexParent);
        if (index.data(RoleNodeId).toUuid() == id) {
            return index;
        }
        const QModelIndex indexBelow = Find(pModel, index, id);
        if (indexBelow.isValid()) {
            return indexBelow;
        }
    }
    return QModelIndex();
}

QString NameOf(const QModelIndex& index)
{
    const int nType = index.data(RoleNodeType).toInt();
    const QString strName = CNameRegistry::Instance().Text(index.data(RoleNodeId).toUuid());
    return nType == NodeAll ? QStringLiteral("all") : nType == NodeInfo ? QStringLiteral("info ") + strName : strName;
}

} // namespace

CTreeFixture::CTreeFixture(const SProcessorAllNode& root, const std::vector<QUuid>& vecSelected)
{
    control.Set([&](SControlAnswers& answers) {
        answers.nodeDiscovered = root;
        answers.vecDiscoveredSelection = vecSelected;
    });
    RefreshStore();
    pTree.reset(new CTestTree(nullptr, true));
    pTree->setStyleSheet(szStyleSheet);
    pTree->RefreshTree();
    pTree->resize(300, 600);
    pTree->show();
    QApplication::setActiveWindow(pTree.data());
    pTree->setFocus();
    Q_UNUSED(QTest::qWaitForWindowExposed(pTree.data()))
    Clear();
}

CTreeFixture::~CTreeFixture() = default;

void CTreeFixture::Load(const SProcessorAllNode& root, const std::vector<QUuid>& vecSelected)
{
    control.Set([&](SControlAnswers& answers) {
        answers.nodeDiscovered = root;
        answers.vecDiscoveredSelection = vecSelected;
    });
    RefreshStore();
    pTree->RefreshTree();
    Clear();
}

void CTreeFixture::RefreshStore()
{
    g_pProcessorTreeData->Refresh();
}

void CTreeFixture::ConnectLikeTheView()
{
    CTestTree* const p = pTree.data();
    QObject::connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo, p, &CProcessorTree::RefreshTree);
    QObject::connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeSelectChanged, p, [p] {
        p->RestoreSelection();
        p->UpdateCurrentNode();
    });
}

void CTreeFixture::Clear()
{
    control.ClearJournal();
}

QModelIndex CTreeFixture::Root() const
{
    return pTree->model()->index(0, 0);
}

QModelIndex CTreeFixture::Row(const QString& strName) const
{
    const QModelIndex indexGroup = Find(pTree->model(), Root(), GroupId(strName));
    return indexGroup.isValid() ? indexGroup : Find(pTree->model(), Root(), ProcessorId(strName));
}

QModelIndex CTreeFixture::Info(const QString& strName) const
{
    return pTree->model()->index(0, 0, Row(strName));
}

QPoint CTreeFixture::At(const QModelIndex& index) const
{
    return pTree->visualRect(index).center();
}

void CTreeFixture::Click(const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(pTree->viewport(), Qt::LeftButton, modifiers, At(index));
}

void CTreeFixture::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(pTree.data(), key, modifiers);
}

void CTreeFixture::RightClick(const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    const QPoint ptWindow = pTree->viewport()->mapTo(pTree->window(), pos);
    QTest::mouseClick(pTree->window()->windowHandle(), Qt::RightButton, modifiers, ptWindow);
}

QStringList CTreeFixture::Menu(const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    QStringList listEntry;
    const CUserHand hand([&](QMenu* pMenu) {
        listEntry = CUserHand::Entries(pMenu);
        pMenu->close();
    });
    RightClick(At(index), modifiers);
    return listEntry;
}

void CTreeFixture::ChooseInMenu(const QModelIndex& index, const QStringList& listPath)
{
    const CUserHand hand([&](QMenu* pMenu) { CUserHand::Choose(pMenu, listPath); });
    RightClick(At(index));
    QVERIFY(hand.HasActed());
}

void CTreeFixture::Select(const QStringList& listName)
{
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const QString& strName : listName) {
        Click(strName == QLatin1String("all") ? Root() : Row(strName), modifiers);
        modifiers = Qt::ControlModifier;
    }
    Clear();
}

QStringList CTreeFixture::Selected() const
{
    QStringList listName;
    for (const QModelIndex& index : pTree->selectedIndexes()) {
        listName.append(NameOf(index));
    }
    return listName;
}

QImage CTreeFixture::Grab() const
{
    return pTree->viewport()->grab().toImage();
}

QString SelectCall(const QString& strNames)
{
    return QStringLiteral("g_pRuntimeControl.SetSelectedNodes([%1])").arg(strNames);
}

QString MoveCall(const QString& strProcessor, const QString& strGroup)
{
    return QStringLiteral("g_pPrcListControl.MoveProcessor(%1, %2)").arg(strProcessor, strGroup);
}
