#pragma once

struct SProcessorAllNode;

/// Which commands of the tool bar can be given, apart from Delete, which asks the control library.
struct SToolBarState
{
    bool bAddGroup = false;
    bool bAddProcessor = false;
    bool bImport = false;
    bool bExport = false;

    /// The rule for a pane that shows tree. A pane holds up to 256 groups, and up to 256 processors or
    /// nMaxSimulators simulators, counted inside and outside of groups. Import and Export exist for the Discovered
    /// pane only.
    static SToolBarState Compute(const SProcessorAllNode& tree, bool bSimulator, bool bLocked);
};
