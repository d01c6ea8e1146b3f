#include "CorvidControl/file/CListPlace.h"

#include "CorvidControl/file/CFileReplacement.h"
#include "CorvidControl/file/FileAccess.h"

#include <QFileInfo>

CListPlace::CListPlace(const QString& strPathIn, int nMaxBytesIn)
    : strPath(QFileInfo(strPathIn).absoluteFilePath()), nMaxBytes(nMaxBytesIn)
{ }

QString CListPlace::GetRealPath() const
{
    const QString strNow = FileAccess::FollowLinks(strPath);
    strReal = strNow.isEmpty() ? strReal : strNow;
    return strReal;
}

SFileContent CListPlace::Load()
{
    const SFileContent content = Look();
    bytesKnown = content.kind == SFileContent::Read ? content.bytes : QByteArray();
    return content;
}

void CListPlace::Forget()
{
    bytesKnown = QByteArray();
}

void CListPlace::Adopt(const QByteArray& bytes)
{
    bytesKnown = bytes;
}

bool CListPlace::Holds(const QByteArray& bytes) const
{
    const SFileContent content = Look();
    return content.kind == SFileContent::Read && bytes == bytesKnown && content.bytes == bytes;
}

QString CListPlace::FindObstacle() const
{
    return FindObstacle(Look());
}

CListPlace::EnResult CListPlace::Replace(const QByteArray& bytes, QString& strFault)
{
    const QString strTarget = GetRealPath();
    if (strTarget.isEmpty()) {
        strFault = QStringLiteral("it is out of reach");
        return NotWritten;
    }
    CFileReplacement replacement(strTarget);
    if (!replacement.Write(bytes)) {
        strFault = replacement.GetFault();
        return NotWritten;
    }
    // As late as can be: the bytes wait beside it already.
    const SFileContent content = Look();
    strFault = FindObstacle(content);
    if (!strFault.isEmpty()) {
        return LeftAlone;
    }
    const CFileReplacement::EnResult result = replacement.Place(content.kind == SFileContent::Read);
    strFault = replacement.GetFault();
    if (result == CFileReplacement::Placed) {
        bytesKnown = bytes;
        return Placed;
    }
    return result == CFileReplacement::Taken ? LeftAlone : NotReplaced;
}

SFileContent CListPlace::Look() const
{
    return FileAccess::Read(strPath, nMaxBytes);
}

QString CListPlace::FindObstacle(const SFileContent& content) const
{
    if (content.kind == SFileContent::Absent) {
        return {};
    }
    if (content.kind == SFileContent::Unreadable) {
        return QStringLiteral("what stands there could not be read: ") + content.strReason;
    }
    if (!bytesKnown.isNull() && content.bytes == bytesKnown) {
        return {};
    }
    return QStringLiteral("what stands there is not what was loaded or saved last");
}
