#pragma once

#include "journal/replay/CRecordedRun.h"
#include "nodes/SProcessorAllNode.h"

#include <QMap>

#include <map>

/// Reads the files of one run, in their order. One thread.
class CRunReader
{
public:
    /// Fills runIn.
    explicit CRunReader(CRecordedRun& runIn) : run(runIn) { }

    /// False when a file is no journal, or damaged before its first line; GetError then has one sentence. Of a file that is
    /// damaged further on, the lines before are read.
    bool Read(const QStringList& listFile);
    QString GetError() const;

    /// The header of a file; empty when it has none.
    static QJsonObject ReadHeader(const QString& strFile);

private:
    bool ReadFile(const QString& strFile, bool bLast);
    bool BeginFile(const QByteArray& bytes);
    bool ReadLine(const QByteArray& bytes);
    bool TakeLine(const QJsonObject& object);
    bool TakeNumbered(const QJsonObject& object);
    bool TakeCall(SRecordedLine& line);
    bool TakeTree(SRecordedLine& line);
    void EndBeforeDamage();
    bool Complete();
    void FindGaps();
    bool Fail(const QString& strFault);

    CRecordedRun& run;
    QString strFile;
    int nLine = 0;      ///< of the file, from 1
    int nFile = 0;      ///< of the run, as its header says
    bool bLost = false; ///< lines of the run are
    QMap<quint64, SRecordedLine> mapLine;
    std::map<QString, QSharedPointer<const SProcessorAllNode>> mapTree; ///< the last one, by operation; of this file
    QString strError;
};
