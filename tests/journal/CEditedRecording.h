#pragma once

#include <QJsonObject>
#include <QList>
#include <QTemporaryDir>

class CRecordedRun;

/// A recording whose lines a test changes: what a panel that behaves otherwise would have left.
class CEditedRecording
{
public:
    /// Reads the only file of a recording. Its numbers are ten times as high, so that lines fit between.
    explicit CEditedRecording(const QString& strFolder);

    /// The place of the first line of that operation from nFrom on.
    int Find(const QString& strOperation, int nFrom = 0) const;
    int FindLast(const QString& strOperation) const;

    /// Writes the lines and reads them as a run.
    CRecordedRun Read() const;

    QList<QJsonObject> listLine;

private:
    QTemporaryDir folder;
};
