#pragma once

#include <QObject>

#include <thread>

class CJournalWriter;
class QMainWindow;
struct SReport;

/// Saves reports of a window and its journal, on a thread of its own. GUI thread.
class CReportSaver : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    CReportSaver(QMainWindow& windowIn, CJournalWriter& writerIn, bool bMaskIn);

    /// Waits for a report that is being written.
    ~CReportSaver() override;

    /// Asks for a file, and saves a report there.
    void Ask(const QString& strListFile, const QString& strJournalFolder);

    /// Begins to save; Finished follows. Does nothing while another is being saved.
    void Save(const QString& strFile, const QString& strListFile, const QString& strJournalFolder);

signals:
    /// strReason is empty when the report is there, else one line.
    void Finished(const QString& strFile, const QString& strReason);

private:
    void Run(const SReport& report);
    void Announce(const QString& strFile, const QString& strReason);

    QMainWindow& window;
    CJournalWriter& writer;
    const bool bMask;
    bool bRunning = false;
    std::thread thread;
};
