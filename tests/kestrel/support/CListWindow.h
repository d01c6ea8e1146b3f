#pragma once

#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/theme/CTheme.h"
#include "controlhost/CJobs.h"
#include "interfaces/host/ICorvidWidget.h"
#include "journal/CCallLog.h"
#include "journal/CControlJournal.h"
#include "journal/SControlPointers.h"
#include "nodes/SProcessorAllNode.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

class ICallRecorder;
class QLabel;
class QMenu;
class QTreeView;

/// Kestrel's window, shown and active, with the real panel on the real control library. The list is
///
///     Main stage: Wall 1, Wall 2, Wall 3, Wall 4
///     Empty
///     Door 1, Door 2, Door 3
///
/// and the panel shows it. All steps below are those of a user.
class CListWindow
{
public:
    /// With a recorder the decorators of the control library are in place, and it gets what they record.
    explicit CListWindow(ICallRecorder* pRecorder = nullptr);

    QTreeView* Tree() const;
    QModelIndex Row(const QString& strName) const;

    /// Clicks the rows of these names, with Control held from the second on.
    void Select(const QStringList& listName) const;

    /// Runs a command and waits until the panel shows another list and none follows: a refresh that is on its way would undo a
    /// click, or take an editor away.
    void AndShown(const std::function<void()>& fnCommand) const;

    /// A key to whatever has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    /// Text to whatever has the focus.
    void Type(const QString& strText) const;

    /// Opens the menu of the first of the rows, all of which are selected first, and chooses.
    void Choose(const QStringList& listName, const QStringList& listPath) const;

    /// Opens the menu of a row that is selected, and acts on it.
    void OpenMenu(const QModelIndex& index, const std::function<void(QMenu*)>& fnAct) const;

    /// Drags the rows onto another and drops them there.
    void Drop(const QStringList& listName, const QString& strTarget) const;

    /// Drops what is selected onto a row.
    void DropOnto(const QModelIndex& indexTarget) const;

    /// The window is active and the tree of the pane has the focus, as after a click.
    void Focus();

    /// An entry of the menus by the words that it begins with, without mnemonics; fails the test when there is none.
    QAction* Action(const QString& strBegin) const;
    bool IsOn(const QString& strBegin) const; ///< whether there is one and it is enabled

    /// The label of the status bar that is shown and has this object name and text that begins so; null else.
    QLabel* Label(const QString& strObject, const QString& strBegin) const;

    /// Of the library, a line a group with its members, then those in no group, then the simulators.
    static QString ListText();
    static SProcessorAllNode List(bool bSimulator = false);
    static QUuid Id(const QString& strName);

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost;
    const SControlPointers pointers = SControlPointers::Linked();
    CCallLog log{ 4096 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pJournal; ///< null without a recorder
    CLanguage language;
    CTheme theme;
    CMainWindow window;
    CPanelLoader loader;
    std::unique_ptr<ICorvidWidget> pPanel;

private:
    QAction* Find(const QString& strBegin) const;
    std::unique_ptr<CControlHost> Start() const;
    std::unique_ptr<CControlJournal> Record(ICallRecorder* pRecorder);
};
