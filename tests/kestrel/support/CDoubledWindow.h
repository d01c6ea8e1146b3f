#pragma once

#include "CHostDouble.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/theme/CTheme.h"
#include "journal/CCallLog.h"
#include "journal/SControlPointers.h"

#include <QApplication>

/// Kestrel's window without a panel, shown and active, on a host that does what the test says.
class CDoubledWindow
{
public:
    /// fnPrepare sets what the host answers before the window asks.
    explicit CDoubledWindow(const std::function<void(CHostDouble&)>& fnPrepare = {})
    {
        if (fnPrepare) {
            fnPrepare(host);
        }
        language.Set(QStringLiteral("en"));
        pWindow = std::make_unique<CMainWindow>(host, pointers, log, language, theme);
        pWindow->show();
        QApplication::setActiveWindow(pWindow.get());
    }

    CHostDouble host;
    const SControlPointers pointers = SControlPointers::Linked();
    CCallLog log{ 64 };
    CLanguage language;
    CTheme theme;
    std::unique_ptr<CMainWindow> pWindow;
};
