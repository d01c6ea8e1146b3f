#pragma once

#include <QCoreApplication>

#include <functional>

class QWidget;

/// The commands that add: a group, simulators, a processor. Each calls the control library and changes no
/// row; the rows come with the library's message. One object per command, GUI thread.
class CAddCommands
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorTreeView)

public:
    /// pParentIn is the parent of all dialogs; not owned. fnUpdateToolBarIn updates which commands of the
    /// tool bar are enabled; called on the GUI thread. fnAnnounceSelectionIn announces that a command may have
    /// moved the selection; called on the thread that the command names, until the command ends.
    CAddCommands(QWidget* pParentIn, std::function<void()> fnUpdateToolBarIn, std::function<void()> fnAnnounceSelectionIn);

    /// Adds an empty group under the library's next number, selects it, updates the tool bar and announces the
    /// selection, both on the GUI thread.
    void AddGroup();

    /// Asks what to add and adds it. Announces nothing.
    void AddSimulators();

    /// Asks for an address and adds the processor there, busy, on a thread of its own that nothing waits for:
    /// the device may be slow to answer. Announces the selection on that thread, before the busy state ends.
    void AddProcessor();

private:
    QWidget* pParent;
    std::function<void()> fnUpdateToolBar;
    std::function<void()> fnAnnounceSelection;
};
