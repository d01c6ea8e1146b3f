#include "CorvidControl/file/CListAside.h"

#include "CorvidControl/file/DatedFile.h"

CListAside::CListAside(const CControlClock& clockIn, int nMaxBytesIn) : clock(clockIn), nMaxBytes(nMaxBytesIn) { }

bool CListAside::Write(const QString& strListPath, const QByteArray& bytes, QString& strFault)
{
    if (pPlace && (pPlace->Holds(bytes) || pPlace->Replace(bytes, strFault) == CListPlace::Placed)) {
        return true;
    }
    // None yet, or somebody else has written or removed it.
    const QString strPath = DatedFile::Write(strListPath, QStringLiteral("unsaved-"), clock.GetDate(), bytes, strFault);
    if (strPath.isEmpty()) {
        return false;
    }
    pPlace = std::make_unique<CListPlace>(strPath, nMaxBytes);
    pPlace->Adopt(bytes);
    return true;
}

void CListAside::StartNew()
{
    pPlace.reset();
}

QString CListAside::GetPath() const
{
    return pPlace ? pPlace->GetPath() : QString();
}
