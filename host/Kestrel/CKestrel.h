#pragma once

#include "Kestrel/CEndSignals.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CSettings.h"
#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/journal/CRunJournal.h"
#include "Kestrel/theme/CTheme.h"

#include <QObject>

class CCallLog;
class IControlHost;
class CInterfacePlayer;
class CMainWindow;
struct SControlPointers;

/// One run of the program: starts the control library, then the window with the panel, and ends them in
/// the opposite order.
class CKestrel : public QObject
{
    Q_OBJECT

public:
    explicit CKestrel(const SKestrelOptions& optionsIn);

    /// Returns the exit code: 0 done, 1 no control library or panel, 2 a bad file, 3 the list was not saved at its place. GUI
    /// thread, once.
    int Run();

    /// One line for the user, on the standard error output.
    static void Complain(const QString& strLine);

private:
    QString GetStartFault(const IControlHost& host, const QString& strLibrary) const;
    void TakeSettings();
    void KeepChoices();
    int RunWindow(IControlHost& host, const SControlPointers& pointers, CCallLog& log);
    int Finish(const CMainWindow& window) const;
    void Log(IControlHost& host, CCallLog& log);
    void Arm(CInterfacePlayer& player, CMainWindow& window);
    void Fail(const QString& strReason, CMainWindow& window);

    const SKestrelOptions options;
    CRunJournal runJournal{ options }; ///< outlives the calls that it records
    CEndSignals endSignals;            ///< outlives the panel's own save
    CSettings settings;
    CTheme theme;
    CLanguage language;
    int nExitCode = 0;
};
