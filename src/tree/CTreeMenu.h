#pragma once

#include <QMap>
#include <QModelIndex>

#include <functional>

class CMenu;
class QAction;
struct SProcessorGroupNode;

/// Fills the context menu of the tree for one opening. The actions are the tree's and are shared by all
/// openings: whether Delete is enabled stays on its action after the menu has closed.
class CTreeMenu
{
public:
    /// Runs the move of the selected processors into a group.
    using FnMoveToGroup = std::function<void(const SProcessorGroupNode&)>;

    /// mapActionIn holds every EnTreeAction and must outlive this object. fnMoveToGroupIn may be called as long as
    /// the filled menu lives.
    CTreeMenu(const QMap<int, QAction*>& mapActionIn, FnMoveToGroup fnMoveToGroupIn);

    /// Adds the entries for the clicked row, a group or a processor, with nSelected rows selected, and asks the
    /// library which of them are offered. Called once per menu, which then owns the sub-menu. GUI thread.
    void Fill(CMenu* pMenu, const QModelIndex& indexClicked, int nSelected);

private:
    void AddRename(CMenu* pMenu, const QModelIndex& indexClicked);
    void AddMoveToGroup(CMenu* pMenu, const QModelIndex& indexClicked);
    void AddDelete(CMenu* pMenu);
    CMenu* GetSubMenu(CMenu* pMenu);

    const QMap<int, QAction*>& mapAction;
    FnMoveToGroup fnMoveToGroup;
};
