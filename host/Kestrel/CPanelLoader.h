#pragma once

#include <QString>

#include <memory>

class ICorvidWidget;
class IUIManagement;

/// Loads the panel's library by its one symbol, as a host does that was built without it.
///
/// The library stays loaded until the process ends: it holds objects that outlive every panel.
class CPanelLoader
{
public:
    /// strFile empty: the library of the installation. Returns null on failure; GetError then holds the
    /// loader's message. GUI thread.
    std::unique_ptr<ICorvidWidget> Load(const QString& strFile, IUIManagement& management);

    QString GetError() const;

private:
    QString strError;
};
