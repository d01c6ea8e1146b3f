#include "CEditedRecording.h"

#include "CRecording.h"
#include "TestMain.h"
#include "journal/replay/CRecordedRun.h"

#include <QJsonDocument>

CEditedRecording::CEditedRecording(const QString& strFolder)
{
    const QList<QByteArray> listBytes = CRecording::ReadFile(strFolder + "/000001.jsonl").split('\n');
    for (const QByteArray& bytes : listBytes.mid(0, listBytes.size() - 1)) {
        QJsonObject line = QJsonDocument::fromJson(bytes).object();
        if (line.contains("n")) {
            line["n"] = line["n"].toDouble() * 10;
        }
        listLine.append(line);
    }
}

int CEditedRecording::Find(const QString& strOperation, int nFrom) const
{
    int nAt = nFrom;
    while (nAt < listLine.size() && listLine[nAt]["operation"].toString() != strOperation) {
        ++nAt;
    }
    return nAt;
}

int CEditedRecording::FindLast(const QString& strOperation) const
{
    int nAt = listLine.size() - 1;
    while (nAt > 0 && listLine[nAt]["operation"].toString() != strOperation) {
        --nAt;
    }
    return nAt;
}

CRecordedRun CEditedRecording::Read() const
{
    QFile file(folder.filePath("000001.jsonl"));
    file.open(QIODevice::WriteOnly);
    for (const QJsonObject& line : listLine) {
        file.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    }
    file.close();
    CRecordedRun run;
    QString strError;
    if (!run.Read(folder.path(), strError)) {
        qFatal("%s", qPrintable(strError));
    }
    return run;
}
