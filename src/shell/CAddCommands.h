#pragma once

class CProcessorTreeView;

/// The commands that add: a group, simulators, a processor. Each tells the control library and changes
/// no row; the rows come with the library's message. Made for one command, GUI thread.
class CAddCommands
{
public:
    /// pPanel is the parent of all dialogs and emits NodeSelectChanged(); not owned.
    explicit CAddCommands(CProcessorTreeView* pViewIn);

    /// Adds an empty group under the library's next number and selects it.
    void AddGroup();

    /// Asks what to add and adds it.
    void AddSimulators();

    /// Asks for an address and adds the processor there, busy, on a thread of its own, which nothing
    /// waits for: the device may be slow to answer. NodeSelectChanged() is emitted on that thread.
    void AddProcessor();

private:
    CProcessorTreeView* pView;
};
