#include "Kestrel/journal/CJournalFile.h"
#include "Kestrel/GuiThread.h"

#include "journal/CCallLog.h"

#include <QTextStream>

namespace {

QString GetKind(EnRecordKind kind)
{
    switch (kind) {
    case RecordCommand:
        return QStringLiteral("command");
    case RecordRead:
        return QStringLiteral("read");
    case RecordMessage:
        return QStringLiteral("message");
    case RecordNote:
        break;
    }
    return QStringLiteral("note");
}

QString GetThread(int nThread)
{
    return nThread == 0 ? QStringLiteral("gui") : QString::number(nThread);
}

} // namespace

CJournalFile::CJournalFile(CCallLog& journalIn, const QString& strFile, QObject* parent)
    : QObject(parent), journal(journalIn), file(strFile)
{
    Q_ASSERT(GuiThread::IsCurrent());
}

CJournalFile::~CJournalFile()
{
    if (file.isOpen()) {
        WriteNew();
    }
}

bool CJournalFile::Open()
{
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        return false;
    }
    connect(&journal, &CCallLog::RecordsWaiting, this, &CJournalFile::WriteNew, Qt::QueuedConnection);
    WriteNew();
    return true;
}

QString CJournalFile::GetError() const
{
    return QStringLiteral("Cannot write the journal '%1': %2").arg(file.fileName(), file.errorString());
}

void CJournalFile::WriteNew()
{
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    const std::vector<SCallRecord> vecRecord = journal.ReadAfter(nWritten);
    for (const SCallRecord& record : vecRecord) {
        stream << record.nNumber << '\t' << record.nTime << '\t' << GetKind(record.kind) << '\t' << GetThread(record.nThread)
               << '\t' << record.pObject << '\t' << QString(record.strText).replace(QLatin1Char('\n'), QLatin1Char(' ')) << '\n';
        nWritten = record.nNumber;
    }
    stream.flush();
    file.flush();
}
