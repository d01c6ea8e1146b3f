#include "tree/CTreeMenu.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "delegate/RowLook.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/widgets/CMenu.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"
#include "tree/TreeAction.h"
#include "tree/commands/DeleteRule.h"

#include <QAction>

namespace {

// A menu takes a single "&" for the mark of a mnemonic and does not show it.
QString EntryText(QString strName)
{
    return strName.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

CTreeMenu::CTreeMenu(const QMap<int, QAction*>& mapActionIn, FnMoveToGroup fnMoveToGroupIn)
    : mapAction(mapActionIn), fnMoveToGroup(std::move(fnMoveToGroupIn))
{ }

void CTreeMenu::Fill(CMenu* pMenu, const QModelIndex& indexClicked, int nSelected)
{
    Q_ASSERT(GuiThread::IsCurrent() && nSelected > 0);
    const bool bGroup = RowValue::NodeType(indexClicked) == NodeGroup;
    if (nSelected == 1) {
        AddRename(pMenu, indexClicked);
    }
    if (bGroup) {
        pMenu->addAction(mapAction[ActionUngroup]);
    } else {
        const bool bMember = RowValue::NodeType(indexClicked.parent()) == NodeGroup;
        pMenu->addAction(mapAction[bMember ? ActionRemoveFromGroup : ActionGroup]);
        AddMoveToGroup(pMenu, indexClicked);
    }
    AddDelete(pMenu);
}

void CTreeMenu::AddRename(CMenu* pMenu, const QModelIndex& indexClicked)
{
    const bool bGroup = RowValue::NodeType(indexClicked) == NodeGroup;
    if (bGroup || g_pPrcListControl->IsNodeActive(RowValue::NodeId(indexClicked))) {
        pMenu->addAction(mapAction[ActionRename]);
    }
}

void CTreeMenu::AddMoveToGroup(CMenu* pMenu, const QModelIndex& indexClicked)
{
    SProcessorAllNode nodeAll;
    g_pProcessorTreeData->GetCurrentTree(nodeAll);
    if (nodeAll.listGroup.isEmpty()) {
        return;
    }
    CMenu* const pSubMenu = GetSubMenu(pMenu);
    const QUuid idParent = RowValue::NodeId(indexClicked.parent());
    for (const SProcessorGroupNode& group : std::as_const(nodeAll.listGroup)) {
        if (group.idNode != idParent) {
            QAction* const pAction = pSubMenu->addAction(EntryText(group.strName));
            pAction->setShortcut(QKeySequence());
            QObject::connect(pAction, &QAction::triggered, pSubMenu, [fn = fnMoveToGroup, group] { fn(group); });
        }
    }
    if (!pSubMenu->isEmpty()) {
        pMenu->addAction(mapAction[ActionMoveToGroup]);
    }
}

void CTreeMenu::AddDelete(CMenu* pMenu)
{
    QAction* const pAction = mapAction[ActionDelete];
    pAction->setEnabled(!DeleteRule::IsBlocked());
    pMenu->addAction(pAction);
}

// The sub-menu dies with the menu of its opening, so that each opening makes a new one.
CMenu* CTreeMenu::GetSubMenu(CMenu* pMenu)
{
    QAction* const pAction = mapAction[ActionMoveToGroup];
    CMenu* pSubMenu = static_cast<CMenu*>(pAction->menu());
    if (!pSubMenu) {
        pSubMenu = new CMenu(pMenu);
        pAction->setMenu(pSubMenu);
    }
    pSubMenu->clear();
    static_cast<QWidget*>(pSubMenu)->setMinimumWidth(RowLook::nSubMenuMinimumWidth);
    return pSubMenu;
}
