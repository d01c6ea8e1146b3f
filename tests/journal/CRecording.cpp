#include "CRecording.h"

#include "Patience.h"

#include <QFile>
#include <QJsonDocument>

QString CRecording::GetFolder() const
{
    return folder.filePath(QStringLiteral("list.kvtl.journal"));
}

QList<QJsonObject> CRecording::Read(CJournalWriter& writer) const
{
    return writer.Flush(std::chrono::milliseconds(nPatience)) ? Read() : QList<QJsonObject>();
}

QList<QJsonObject> CRecording::Read() const
{
    QList<QJsonObject> listLine;
    const QStringList listFile = CJournalRing::GetFiles(GetFolder());
    for (const QString& strFile : listFile) {
        const QList<QByteArray> listBytes = ReadFile(strFile).split('\n');
        for (const QByteArray& bytes : listBytes.mid(0, listBytes.size() - 1)) {
            listLine.append(QJsonDocument::fromJson(bytes).object());
        }
    }
    return listLine;
}

QList<QJsonObject> CRecording::Pick(const QList<QJsonObject>& listLine, const QString& strKind)
{
    QList<QJsonObject> listPicked;
    for (const QJsonObject& line : listLine) {
        if (line.value(QStringLiteral("kind")).toString() == strKind) {
            listPicked.append(line);
        }
    }
    return listPicked;
}

QByteArray CRecording::ReadFile(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

SJournalRecord CRecording::Note(const QString& strText)
{
    SJournalRecord record;
    record.line = LineNote;
    record.szObject = "Library";
    record.vecField = { { "text", strText } };
    return record;
}

SJournalRecord CRecording::ReadingCall()
{
    SJournalRecord record;
    record.szObject = "RuntimeControl";
    record.szOperation = "IsSimulatorPane";
    record.result = false;
    return record;
}
