#pragma once

/// The commands of a user that an application hears about. The numbers hold within a process only.
///
/// @since 0.2
enum EnListCommand
{
    CommandAddGroup,
    CommandAddProcessor,
    CommandAddSimulators,
    CommandDelete,      ///< a processor
    CommandDeleteGroup, ///< a group with its processors
    CommandUngroup,     ///< a group alone, its processors move to the root
    CommandRename,
    CommandMove,
    CommandChief,
    CommandImport,
    CommandTakeEarlier, ///< IControlHost::TakeEarlierList
    CommandUseRefused,  ///< IControlHost::UseRefusedList
    CommandRestore,     ///< IControlHost::RestoreList; like those below it is in refusals only
    CommandExport,
    CommandSave,
    CommandScan
};
