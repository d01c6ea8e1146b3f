#pragma once

class QMainWindow;
class QString;

/// The title of the host's main window. Not translated. GUI thread.
namespace WindowTitle {

/// The first main window among the application's top-level widgets, owned by the host; null when there is
/// none.
QMainWindow* GetMainWindow();

/// Names the main window after the project: "Alpha - Kestrel", or "Kestrel" for an empty name. Does nothing
/// when there is no main window.
void ShowProject(const QString& strProject);

} // namespace WindowTitle
