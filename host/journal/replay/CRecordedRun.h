#pragma once

#include "journal/replay/SRecordedLine.h"

#include <QVector>

/// A run of the program as its journal holds it: all its files joined, in the order in which things began, with whole trees.
/// One thread while it is read; any after that.
class CRecordedRun
{
public:
    /// Reads a run: of a file "000003.jsonl" all the files beside it that belong to the same run; of a folder the last run
    /// in it. Of damaged files the part before the damage. False when nothing can be replayed of it; strError then has one
    /// sentence. An id of strRun picks that run of the folder.
    bool Read(const QString& strPath, QString& strError, const QString& strRun = QString());

    /// The header of the first file that is there.
    QJsonObject GetHeader() const;

    /// All lines but headers, ends and what was lost, by their number.
    const QVector<SRecordedLine>& GetLines() const;

    /// Names, paths and addresses are pseudonyms, and what was typed is missing.
    bool IsMasked() const;

    /// All of the run is there, from its start to the last line that the program wrote. GetReason says what is missing.
    bool IsWhole() const;
    QString GetReason() const;

    /// The first file of the run is there.
    bool HasBeginning() const;

    /// What has a lower number is not played: 0 with the first file. Without, the state that the panel then had is known only
    /// behind a refresh, see RunStart; the largest number when there is none.
    quint64 GetStartNumber() const;

    /// The first line that is played; the number of lines for none.
    int GetFirstPlace() const;

    /// The program ended in order: there is nothing behind the last line.
    bool HasEnd() const;

    /// Up to this number no line is missing. What comes behind it cannot be compared.
    quint64 GetCompleteTo() const;

    /// The number of the first call by which the panel went: its worker unsubscribes. The largest number when it did not.
    quint64 GetTeardownNumber() const;

private:
    friend class CRunReader; // fills it

    QJsonObject header;
    QVector<SRecordedLine> vecLine;
    QStringList listReason; ///< why it is not whole
    bool bBeginning = false;
    bool bEnd = false;
    quint64 nCompleteTo = 0;
    quint64 nStart = 0;
};
