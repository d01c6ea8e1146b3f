#pragma once

class QMainWindow;
class QString;

/// The first main window among the application's top-level widgets; null when there is none.
QMainWindow* GetMainWindow();

/// Titles the main window after the project: "Alpha - Kestrel", or "Kestrel" for an empty name. Not
/// translated. Does nothing when there is no main window.
void SetMainWindowTitle(const QString& strProject);
