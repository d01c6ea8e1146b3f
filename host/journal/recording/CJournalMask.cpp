#include "journal/recording/CJournalMask.h"

#include <QFileInfo>

namespace {

QString GetWord(EnPrivateText kind)
{
    switch (kind) {
    case PrivateName:
        return QStringLiteral("name-");
    case PrivatePath:
        return QStringLiteral("path-");
    case PrivateText:
        break;
    }
    return QStringLiteral("text-");
}

// Only what tells lists, journals and pictures apart: another suffix may say anything.
QString GetSuffix(const SPrivateText& text)
{
    const QString strSuffix = text.kind == PrivatePath ? QFileInfo(text.strText).suffix() : QString();
    const QStringList listKnown{ QStringLiteral("kvtl"), QStringLiteral("json"), QStringLiteral("png"), QStringLiteral("so") };
    return listKnown.contains(strSuffix) ? QLatin1Char('.') + strSuffix : QString();
}

} // namespace

bool CJournalMask::IsOn() const
{
    return bOn;
}

QString CJournalMask::GetText(const SPrivateText& text)
{
    if (!bOn || text.strText.isEmpty()) {
        return text.strText;
    }
    const QString strWord = GetWord(text.kind);
    QString& strPseudonym = mapText[strWord + text.strText];
    if (strPseudonym.isEmpty()) {
        strPseudonym = strWord + QString::number(mapText.size()) + GetSuffix(text);
    }
    return strPseudonym;
}

QString CJournalMask::GetName(const QString& strName)
{
    return GetText(SPrivateText(strName));
}

quint32 CJournalMask::GetAddress(quint32 nIP)
{
    if (!bOn || nIP == 0) {
        return nIP;
    }
    quint32& nPseudonym = mapAddress[nIP];
    if (nPseudonym == 0) {
        nPseudonym = static_cast<quint32>(mapAddress.size());
    }
    return nPseudonym;
}
