#include "Kestrel/CKestrel.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CControlLoader.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/CSessionEnd.h"
#include "Kestrel/journal/CJournalFile.h"
#include "Kestrel/keys/CUserWatch.h"
#include "Kestrel/player/CInterfacePlayer.h"
#include "Kestrel/player/MarkFaults.h"
#include "controlhost/CJobs.h"
#include "controlhost/IControlHost.h"
#include "interfaces/host/ICorvidWidget.h"
#include "journal/CCallLog.h"
#include "journal/CControlJournal.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int nCodeNoLibrary = 1;
constexpr int nCodeBadFile = 2;
constexpr int nCodeNotSaved = 3;
constexpr int nJournalLines = 4096;
constexpr double dMsPerSecond = 1000.0;

SControlOptions GetControlOptions(const SKestrelOptions& options)
{
    SControlOptions control;
    control.strListFile = options.strListFile;
    control.strScenarioFile = options.strScenarioFile;
    control.dPace = options.dPace;
    return control;
}

void Say(const QString& strLine)
{
    std::printf("%s\n", qUtf8Printable(strLine));
    std::fflush(stdout);
}

} // namespace

CKestrel::CKestrel(const SKestrelOptions& optionsIn) : options(optionsIn) { }

int CKestrel::Run()
{
    Q_ASSERT(GuiThread::IsCurrent());
    TakeSettings();

    CCallLog log(nJournalLines);
    runJournal.Listen(log);
    CJobs jobs;
    CControlLoader loader;
    const std::unique_ptr<IControlHost> pHost = loader.Load(options.strControlFile, GetControlOptions(options), jobs);
    if (!pHost) {
        Complain(loader.GetError());
        return nCodeNoLibrary;
    }
    const QString strFault = GetStartFault(*pHost, loader.GetFileName());
    if (!strFault.isEmpty()) {
        Complain(strFault);
        return nCodeBadFile;
    }
    // Not before: a run that is refused must not empty the journal of an earlier one.
    CJournalFile journalFile(log, options.strJournalFile);
    if (!options.strJournalFile.isEmpty() && !journalFile.Open()) {
        Complain(journalFile.GetError());
        return nCodeBadFile;
    }
    runJournal.Open(loader.GetPointers(), language, theme);
    if (!pHost->GetListError().isEmpty()) {
        Complain(pHost->GetListError());
    }
    Log(*pHost, log);
    const CControlJournal journal(loader.GetPointers(), log, jobs,
                                  [&pHost](int nMessage) { return pHost->GetMessageName(nMessage); });
    return RunWindow(*pHost, loader.GetPointers(), log);
}

void CKestrel::Complain(const QString& strLine)
{
    std::fprintf(stderr, "kestrel: %s\n", qUtf8Printable(strLine));
}

// What the command line asks for holds for this run alone.
void CKestrel::TakeSettings()
{
    if (!settings.GetFault().isEmpty()) {
        Complain(settings.GetFault());
    }
    theme.Apply(*qApp);
    theme.Set(options.strTheme.isEmpty() ? settings.GetTheme() : options.strTheme);
    const QString strKept = settings.GetLanguage().isEmpty() ? CLanguage::GetSystemCode() : settings.GetLanguage();
    language.Set(options.strLanguage.isEmpty() ? strKept : options.strLanguage);
    KeepChoices();
}

void CKestrel::KeepChoices()
{
    connect(&theme, &CTheme::Changed, this, [this] { settings.SetTheme(theme.GetName()); });
    connect(&language, &CLanguage::Changed, this, [this] { settings.SetLanguage(language.GetCode()); });
}

// Why what was asked for cannot be begun; empty when it can.
QString CKestrel::GetStartFault(const IControlHost& host, const QString& strLibrary) const
{
    const bool bAsked = !options.strListFile.isEmpty() || !options.strScenarioFile.isEmpty() || options.dPace != 1.0;
    if (!host.IsSteerable() && bAsked) {
        return QStringLiteral("%1 has nothing that --list, --scenario and --pace are for: it has no CorvidControl_CreateHost")
            .arg(strLibrary);
    }
    if (!host.GetScenarioError().isEmpty()) {
        return host.GetScenarioError();
    }
    const QString strMarkFault = MarkFaults::FindFault(host.GetInterfaceMarks());
    return strMarkFault.isEmpty() ? QString() : options.strScenarioFile + QStringLiteral(": ") + strMarkFault;
}

int CKestrel::RunWindow(IControlHost& host, const SControlPointers& pointers, CCallLog& log)
{
    const CUserWatch watch(host);
    CMainWindow window(host, pointers, log, language, theme);
    CPanelLoader loader;
    // Declared behind the window: the panel ends first, while its parent and the control library live.
    const std::unique_ptr<ICorvidWidget> pPanel = loader.Load(options.strPanelFile, window);
    if (!pPanel) {
        Complain(loader.GetError());
        return nCodeNoLibrary;
    }
    window.SetPanel(pPanel->GetWidget());
    CInterfacePlayer player(window, pointers, host.GetInterfaceMarks(), options.strShotFolder);
    Arm(player, window);
    const CSessionEnd sessionEnd(window, QStringList(QApplication::applicationFilePath()) + options.listArgument);
    connect(&endSignals, &CEndSignals::EndRequested, &window, &CMainWindow::EndUnattended);
    // Nobody sits before a run for pictures, and its window is the same for everybody.
    const bool bForPictures = !options.strShotFile.isEmpty() || !options.strShotFolder.isEmpty();
    if (!bForPictures) {
        settings.RestoreWindow(window);
    }
    runJournal.Follow(window, language, theme);
    window.show();
    host.StartLife();
    player.Start();
    QApplication::exec();
    runJournal.Leave();
    if (!bForPictures) {
        settings.SaveWindow(window, !player.HasMovedJournal());
    }
    return Finish(window);
}

int CKestrel::Finish(const CMainWindow& window) const
{
    if (window.GetSaveFault().isEmpty()) {
        return nExitCode;
    }
    Complain(window.GetSaveFault());
    return nCodeNotSaved;
}

void CKestrel::Log(IControlHost& host, CCallLog& log)
{
    const QString strListError = host.GetListError();
    if (!strListError.isEmpty()) {
        log.Write(RecordNote, "Library", strListError);
    }
    // Direct, since the journal takes lines from any thread, and the order counts.
    connect(
        &host, &IControlHost::LogLine, this,
        [&log](const QString& strLine) {
            log.Write(RecordNote, "Library", strLine);
            Complain(strLine);
        },
        Qt::DirectConnection);
    connect(
        &host, &IControlHost::LifeStep, this, [&log](const QString& strLine) { log.Write(RecordNote, "Devices", strLine); },
        Qt::DirectConnection);
}

void CKestrel::Arm(CInterfacePlayer& player, CMainWindow& window)
{
    connect(&player, &CInterfacePlayer::PictureTaken, this, &Say);
    connect(&player, &CInterfacePlayer::MarkFailed, this, [this, &window](const QString& strReason) { Fail(strReason, window); });
    if (!options.strShotFolder.isEmpty()) {
        connect(&player, &CInterfacePlayer::Finished, &window, &CMainWindow::EndUnattended);
    }
    if (options.strShotFile.isEmpty()) {
        return;
    }
    QTimer::singleShot(qRound(options.dShotAt * dMsPerSecond), &window, [this, &player, &window] {
        const QString strReason = player.TakePicture(options.strShotFile);
        if (strReason.isEmpty()) {
            Say(QStringLiteral("Wrote %1; --shot ends Kestrel here").arg(QFileInfo(options.strShotFile).absoluteFilePath()));
            window.EndUnattended();
        } else {
            Fail(strReason, window);
        }
    });
}

void CKestrel::Fail(const QString& strReason, CMainWindow& window)
{
    Complain(strReason);
    nExitCode = nCodeBadFile;
    window.EndUnattended();
}
