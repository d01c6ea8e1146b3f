#pragma once

#include "double/CControlDouble.h"
#include "tree/CProcessorTree.h"

#include <QScopedPointer>

/// A tree whose protected parts a test may reach.
class CTestTree : public CProcessorTree
{
public:
    using CProcessorTree::CProcessorTree;
    using CProcessorTree::DealAction;
    using CProcessorTree::dragEnterEvent;
    using CProcessorTree::dragMoveEvent;
    using CProcessorTree::dropEvent;
    using CProcessorTree::GetNodeAboveSelection;
    using CProcessorTree::mouseReleaseEvent;
    using CProcessorTree::selectedIndexes;
    using CProcessorTree::wheelEvent;

    void doItemsLayout() override
    {
        ++nLayouts;
        CProcessorTree::doItemsLayout();
    }
    int nLayouts = 0;
};

/// One tree on the screen, filled from the doubled library through the store, in the dark style sheet of
/// the host. Nothing connects the store to the tree unless ConnectLikeTheView() was called.
class CTreeFixture
{
public:
    explicit CTreeFixture(const SProcessorAllNode& root, const std::vector<QUuid>& vecSelected = { QUuid() });
    ~CTreeFixture();

    /// The library's tree and selection of the Discovered pane, read by the store and shown.
    void Load(const SProcessorAllNode& root, const std::vector<QUuid>& vecSelected);

    /// Reads the library into the store, on this thread; the rows do not follow.
    void RefreshStore();

    /// As the view does: rows and selection follow the store.
    void ConnectLikeTheView();

    /// Forgets the calls so far.
    void Clear();

    QModelIndex Root() const;
    QModelIndex Row(const QString& strName) const;  ///< of the group or processor with this name
    QModelIndex Info(const QString& strName) const; ///< under the processor with this name

    /// A place on the row, in the viewport.
    QPoint At(const QModelIndex& index) const;
    void Click(const QModelIndex& index, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// A right click through the window, as from the user's hand. Blocks while a menu is open.
    void RightClick(const QPoint& pos, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Right-clicks the row, closes the menu and gives its entries as CUserHand::Entries; empty when none
    /// opened.
    QStringList Menu(const QModelIndex& index, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Right-clicks the row and chooses the entry, and the entry of its sub-menu.
    void ChooseInMenu(const QModelIndex& index, const QStringList& listPath);

    /// Clicks the first and adds the others with Ctrl, then forgets the calls.
    void Select(const QStringList& listName);

    /// Names of the selected rows in the order of selectedIndexes(): "all", "Stage", "alpha", "info alpha".
    QStringList Selected() const;

    /// The viewport as it stands on the screen.
    QImage Grab() const;

    CControlDouble control;
    QScopedPointer<CTestTree> pTree;
};

/// "g_pRuntimeControl.SetSelectedNodes([...])" and "g_pPrcListControl.MoveProcessor(..., ...)".
QString SelectCall(const QString& strNames);
QString MoveCall(const QString& strProcessor, const QString& strGroup);
