#pragma once

/// The list when the panel ends.
namespace FinalListSave {

/// Saves the list to the control library's own file. Reports nothing. GUI thread.
///
/// The answer 1 of ExportList says that the file left behind is worthless: it is then removed. Every
/// other answer leaves it alone.
void Save();

} // namespace FinalListSave
