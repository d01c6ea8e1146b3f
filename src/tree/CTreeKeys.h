#pragma once

#include <QtGlobal>

class CProcessorTree;
class CProcessorTreeModel;
class CSelectionAnchor;
class QAction;
class QKeyEvent;
class QModelIndex;

/// What the tree does with Delete and with the keys that move the current row or fold it. An arrow that
/// has nothing to do is ignored and goes to the tree's parent. Owned by the tree. GUI thread.
class CTreeKeys
{
public:
    /// All must outlive this object. actionDeleteIn is the menu's entry, which says whether Delete does anything.
    CTreeKeys(CProcessorTree& treeIn, const CProcessorTreeModel& modelIn, CSelectionAnchor& anchorIn,
              const QAction& actionDeleteIn);

    /// Takes the press of a key. False: it is none of those, nothing has happened, and it is the caller's.
    bool Deal(QKeyEvent* pEvent);

    /// Takes the release of every key: a Delete key that is held is recognised by it.
    void NoteRelease(const QKeyEvent* pEvent);

private:
    /// Deletes without a question, groups with their processors, unless the last opening of the menu has left its
    /// entry disabled.
    void DealDeleteKey(QKeyEvent* pEvent);

    /// Left, Up, Right and Down: from node to node, with exactly one row selected.
    void DealArrowKey(QKeyEvent* pEvent);

    /// Home, End and the pages: as the view does it, also with a range by Shift.
    void DealMoveKey(QKeyEvent* pEvent);

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
