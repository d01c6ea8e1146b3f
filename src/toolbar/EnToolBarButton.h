#pragma once

/// The buttons and menu entries of the tool bar; the argument of CProcessorTreeToolBar::SignalToolBar.
enum EnToolBarButton
{
    ToolBarMenu = 0,         ///< opens the menu; never sent
    ToolBarAddGroup = 1,     ///< button
    ToolBarAddProcessor = 2, ///< button; adds simulators in the Simulator pane
    ToolBarDelete = 3,       ///< button
    ToolBarSearch = 5,       ///< menu entry; 4 is not used
    ToolBarImport = 6,       ///< menu entry
    ToolBarExport = 7,       ///< menu entry
};
