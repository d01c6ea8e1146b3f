#include "Kestrel/journal/CRunJournal.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/journal/CCrashFlush.h"
#include "Kestrel/journal/CEditJournal.h"
#include "Kestrel/journal/CGuardField.h"
#include "Kestrel/journal/CInputJournal.h"
#include "Kestrel/journal/CJournalField.h"
#include "Kestrel/journal/CPopupJournal.h"
#include "Kestrel/journal/CScreenJournal.h"
#include "Kestrel/journal/UserLine.h"
#include "Kestrel/report/CReportAction.h"
#include "Kestrel/report/CReportSaver.h"
#include "Kestrel/theme/CTheme.h"
#include "interfaces/control/IConfigControl.h"
#include "journal/CCallLog.h"
#include "journal/SControlPointers.h"

#include <QApplication>
#include <QDateTime>
#include <QStandardPaths>
#include <QTimeZone>
#include <QUuid>

namespace {

constexpr qint64 nFormat = 1;

} // namespace

CRunJournal::CRunJournal(const SKestrelOptions& optionsIn) : options(optionsIn)
{
    writer.SetTrouble([this](const QString& strReason) { trouble.Set(strReason); });
}

CRunJournal::~CRunJournal() = default;

void CRunJournal::Listen(CCallLog& log)
{
    log.SetRecorder(&guard);
}

void CRunJournal::Open(const SControlPointers& pointers, const CLanguage& language, const CTheme& theme)
{
    Q_ASSERT(GuiThread::IsCurrent());
    strList = (*pointers.ppConfig)->GetListFilePath();
    std::vector<SJournalField> vecHeader = GetHeader(strList);
    vecHeader.push_back({ "language", language.GetCode() });
    vecHeader.push_back({ "theme", theme.GetName() });
    vecHeader.push_back({ "scale", QString::number(qApp->devicePixelRatio()) });
    writer.Open(GetFolder(strList), vecHeader, options.bMaskJournal);
    pCrashFlush = std::make_unique<CCrashFlush>(writer);
}

void CRunJournal::Follow(CMainWindow& window, const CLanguage& language, const CTheme& theme)
{
    pInput = std::make_unique<CInputJournal>(guard, options.bMaskJournal);
    pEdits = std::make_unique<CEditJournal>(guard);
    pPopups = std::make_unique<CPopupJournal>(guard);
    pScreen = std::make_unique<CScreenJournal>(guard, window, *window.GetPanel(), language, theme);
    ShowState(window);
    FollowEnd(window);
    pReport = std::make_unique<CReportSaver>(window, writer, options.bMaskJournal);
    if (auto* pAction = window.findChild<CReportAction*>()) {
        QObject::connect(pAction, &QAction::triggered, pReport.get(), [this] { pReport->Ask(strList, GetFolder(strList)); });
    }
    // Not before there is a loop: what the window takes to come up is no stall of it.
    QMetaObject::invokeMethod(pScreen.get(), [this] { guard.WatchLoop(); }, Qt::QueuedConnection);
}

void CRunJournal::ShowState(const CMainWindow& window)
{
    if (auto* pField = window.findChild<CGuardField*>()) {
        QObject::connect(&guard, &CGuiGuard::Held, pField,
                         [this, pField](const SGuiHold& hold) { pField->SetState(guard.GetCount(), hold); });
    }
    if (auto* pField = window.findChild<CJournalField*>()) {
        QObject::connect(&trouble, &CJournalTrouble::Changed, pField, &CJournalField::SetReason, Qt::QueuedConnection);
        pField->SetReason(writer.GetError()); // of before there was a window
    }
}

// No gesture says why what is open goes, and what the host finds on the disk is no call of the control library.
void CRunJournal::FollowEnd(const CMainWindow& window)
{
    QObject::connect(&window, &CMainWindow::EndedUnattended, pScreen.get(),
                     [this] { UserLine::Write(guard, "unattended end", {}); });
    QObject::connect(&window, &CMainWindow::ListSaved, pScreen.get(), [this](const QString& strReason, bool bAsks) {
        UserLine::Write(
            guard, "save",
            { { "saved", strReason.isEmpty() }, { "asked", bAsks }, { "reason", SPrivateText(strReason, PrivateText) } });
    });
    QObject::connect(&window, &CMainWindow::ListAnswered, pScreen.get(),
                     [this](bool bGoes) { UserLine::Write(guard, "save answered", { { "goes", bGoes } }); });
}

void CRunJournal::Leave()
{
    guard.LeaveLoop();
    pReport.reset();
    pScreen.reset();
    pPopups.reset();
    pEdits.reset();
    pInput.reset();
}

QString CRunJournal::GetFolder(const QString& strListFile)
{
    const QString strOwn = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/kestrel");
    return (strListFile.isEmpty() ? strOwn : strListFile) + QStringLiteral(".journal");
}

std::vector<SJournalField> CRunJournal::GetHeader(const QString& strListFile) const
{
    return { { "format", nFormat },
             { "program", QCoreApplication::applicationName() },
             { "version", QCoreApplication::applicationVersion() },
             { "run", QUuid::createUuid() },
             { "process", qint64(QCoreApplication::applicationPid()) },
             { "started",
               QDateTime::currentDateTime()
                   .toOffsetFromUtc(QDateTime::currentDateTime().offsetFromUtc())
                   .toString(Qt::ISODateWithMs) },
             { "zone", QString::fromLatin1(QTimeZone::systemTimeZoneId()) },
             { "list", SPrivateText(strListFile, PrivatePath) },
             { "arguments", GetArguments() },
             { "qt", QString::fromLatin1(qVersion()) },
             { "system", QSysInfo::prettyProductName() } };
}

// With the mask, the names of the options: a value may look like one.
QStringList CRunJournal::GetArguments() const
{
    return options.bMaskJournal ? options.listName : options.listArgument;
}
