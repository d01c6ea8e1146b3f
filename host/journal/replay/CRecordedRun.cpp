#include "journal/replay/CRecordedRun.h"

#include "journal/replay/CRunReader.h"
#include "journal/replay/RunFiles.h"

#include <algorithm>
#include <limits>

QJsonObject CRecordedRun::GetHeader() const
{
    return header;
}

const QVector<SRecordedLine>& CRecordedRun::GetLines() const
{
    return vecLine;
}

bool CRecordedRun::IsMasked() const
{
    return header.value(QStringLiteral("masked")).toBool();
}

bool CRecordedRun::IsWhole() const
{
    return listReason.isEmpty();
}

QString CRecordedRun::GetReason() const
{
    return listReason.join(QLatin1Char(' '));
}

bool CRecordedRun::HasBeginning() const
{
    return bBeginning;
}

quint64 CRecordedRun::GetStartNumber() const
{
    return nStart;
}

int CRecordedRun::GetFirstPlace() const
{
    const auto it = std::lower_bound(vecLine.begin(), vecLine.end(), nStart,
                                     [](const SRecordedLine& line, quint64 n) { return line.nNumber < n; });
    return static_cast<int>(it - vecLine.begin());
}

bool CRecordedRun::HasEnd() const
{
    return bEnd;
}

quint64 CRecordedRun::GetCompleteTo() const
{
    return nCompleteTo;
}

quint64 CRecordedRun::GetTeardownNumber() const
{
    for (const SRecordedLine& line : vecLine) {
        if (line.strOperation == QLatin1String("Detach")) {
            return line.nNumber;
        }
    }
    return std::numeric_limits<quint64>::max();
}

bool CRecordedRun::Read(const QString& strPath, QString& strError, const QString& strRun)
{
    *this = CRecordedRun();
    const QStringList listFile = RunFiles::Find(strPath, strRun, strError);
    if (listFile.isEmpty()) {
        return false;
    }
    CRunReader reader(*this);
    if (!reader.Read(listFile)) {
        strError = reader.GetError();
        return false;
    }
    return true;
}
