#pragma once

#include <QtGlobal>

class CProcessorTree;
class CProcessorTreeModel;
class CSelectionAnchor;
class QAction;
class QKeyEvent;
class QModelIndex;

/// What the tree does with Delete and with the keys that move the current row or fold it. A key that has
/// nothing to do here is ignored and goes to the tree's parent. Owned by the tree. GUI thread.
class CTreeKeys
{
public:
    /// All must outlive this object. actionDeleteIn is the menu's entry, which says whether Delete does anything.
    CTreeKeys(CProcessorTree& treeIn, const CProcessorTreeModel& modelIn, CSelectionAnchor& anchorIn,
              const QAction& actionDeleteIn);

    /// Delete: without a question, groups with their processors. Only what the last opening of the menu has left
    /// on the entry can keep it from that.
    void DealDeleteKey(QKeyEvent* pEvent);

    /// Takes the release of every key: a Delete key that is held is recognised by it.
    void NoteRelease(const QKeyEvent* pEvent);

    /// Left, Up, Right and Down: from node to node, with exactly one row selected.
    void DealArrowKey(QKeyEvent* pEvent);

    /// Home, End and the pages: as the view does it, also with a range by Shift.
    void DealMoveKey(QKeyEvent* pEvent);

private:
    bool IsRepeat(const QKeyEvent* pEvent) const;
    bool DrawsRange(const QModelIndex& index, const QKeyEvent* pEvent) const;
    void MoveTo(const QModelIndex& index);
    void MoveUp(QKeyEvent* pEvent, const QModelIndex& index);
    void MoveDown(QKeyEvent* pEvent, const QModelIndex& index);
    void Fold(QKeyEvent* pEvent, const QModelIndex& index);

    CProcessorTree& tree;
    const CProcessorTreeModel& model;
    CSelectionAnchor& anchor;
    const QAction& actionDelete;
    ulong nDeleteReleased = 0; ///< when the Delete key was let go, in ms by the clock of the window system
};
