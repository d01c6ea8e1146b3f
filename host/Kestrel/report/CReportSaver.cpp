#include "Kestrel/report/CReportSaver.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/report/ReportFile.h"
#include "Kestrel/report/SReport.h"
#include "journal/recording/CJournalWriter.h"

#include <QDateTime>
#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

namespace {

// What the user did last is to be in it; a disk that takes nothing is not waited for.
constexpr std::chrono::seconds timeForJournal{ 5 };
constexpr int nMessageMs = 10000;

QString GetDefaultName(const QString& strListFile)
{
    const QString strDate = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    return QFileInfo(strListFile).dir().filePath(QStringLiteral("kestrel-report-%1.tar.gz").arg(strDate));
}

} // namespace

CReportSaver::CReportSaver(QMainWindow& windowIn, CJournalWriter& writerIn, bool bMaskIn)
    : window(windowIn), writer(writerIn), bMask(bMaskIn)
{
    connect(this, &CReportSaver::Finished, this, &CReportSaver::Announce);
}

CReportSaver::~CReportSaver()
{
    if (thread.joinable()) {
        thread.join();
    }
}

void CReportSaver::Ask(const QString& strListFile, const QString& strJournalFolder)
{
    const QString strFile
        = QFileDialog::getSaveFileName(&window, tr("Save report"), GetDefaultName(strListFile), tr("Reports (*.tar.gz)"));
    if (!strFile.isEmpty()) {
        Save(strFile, strListFile, strJournalFolder);
    }
}

void CReportSaver::Save(const QString& strFile, const QString& strListFile, const QString& strJournalFolder)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bRunning) {
        return;
    }
    bRunning = true;
    SReport report;
    report.strFile = strFile;
    report.strListFile = strListFile;
    report.strJournalFolder = strJournalFolder;
    report.picture = bMask ? QImage() : window.grab().toImage();
    report.versions = ReportFile::GetVersions(bMask);
    report.versions.insert(QStringLiteral("journalLost"), static_cast<double>(writer.GetLost()));
    report.versions.insert(QStringLiteral("journalError"), bMask ? QString() : writer.GetError());
    report.bMask = bMask;
    if (thread.joinable()) {
        thread.join(); // it has ended
    }
    thread = std::thread([this, report] { Run(report); });
}

// On the thread of its own.
void CReportSaver::Run(const SReport& report)
{
    writer.Flush(timeForJournal);
    const QString strReason = ReportFile::Write(report);
    const QString strFile = report.strFile;
    QMetaObject::invokeMethod(
        this,
        [this, strFile, strReason] {
            bRunning = false;
            emit Finished(strFile, strReason);
        },
        Qt::QueuedConnection);
}

void CReportSaver::Announce(const QString& strFile, const QString& strReason)
{
    if (strReason.isEmpty()) {
        window.statusBar()->showMessage(tr("Report saved: %1").arg(strFile), nMessageMs);
        return;
    }
    auto* pBox = new QMessageBox(QMessageBox::Warning, tr("Save report"),
                                 tr("The report was not saved.\n%1: %2").arg(strFile, strReason), QMessageBox::Ok, &window);
    pBox->setAttribute(Qt::WA_DeleteOnClose);
    pBox->open();
}
