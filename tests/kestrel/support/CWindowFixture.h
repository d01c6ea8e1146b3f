#pragma once

#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/theme/CTheme.h"
#include "journal/CCallLog.h"
#include "journal/SControlPointers.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

/// Kestrel's window, shown and active, on a real control library that keeps its list in a folder of its own.
class CWindowFixture
{
public:
    /// Gets the path of the list before the library reads it.
    using FnPrepare = std::function<void(const QString&)>;

    static constexpr int nShortScanMs = 50;

    explicit CWindowFixture(const FnPrepare& fnPrepare = {}, int nScanMs = nShortScanMs);

    /// The library has an empty group more, which is not saved yet.
    static void AddGroup(const QString& strName);

    QString ListPath() const;

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost;
    const SControlPointers pointers = SControlPointers::Linked();
    CCallLog log{ 64 };
    CLanguage language;
    CTheme theme;
    CMainWindow window;

private:
    std::unique_ptr<CControlHost> Start(const FnPrepare& fnPrepare, int nScanMs) const;
};
