#pragma once

/// Saves the list to the control library's own file, as the panel does at its end. Reports nothing.
///
/// The answer 1 of ExportList says that the file left behind is worthless: it is then removed. Every
/// other answer leaves it alone.
void SaveList();
