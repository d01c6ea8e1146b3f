#include "journal/CCallWriter.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr size_t nIdsShown = 3;
constexpr int nDigitsShown = 8;
constexpr int nTextShown = 80;

} // namespace

CCallWriter::CCallWriter(CCallLog& journalIn, const char* pObjectIn) : journal(journalIn), pObject(pObjectIn) { }

void CCallWriter::Finished(const char* pOperation, qint64 nMilliseconds) const
{
    const QString strText = QStringLiteral("%1 came back after %2 ms").arg(QLatin1String(pOperation)).arg(nMilliseconds);
    journal.Write(RecordCommand, pObject, strText);
}

void CCallWriter::Threw(const char* pOperation, const QString& strThrown) const
{
    journal.Write(RecordNote, pObject, QString::fromLatin1(pOperation) + QStringLiteral(" threw ") + strThrown);
}

void CCallWriter::Message(int nMessage, const QString& strName) const
{
    const QString strText = QStringLiteral("message %1 %2").arg(nMessage).arg(strName);
    journal.Write(RecordMessage, pObject, strText.trimmed());
}

const char* CCallWriter::GetObjectName() const
{
    return pObject;
}

ICallRecorder* CCallWriter::GetRecorder() const
{
    return journal.GetRecorder();
}

QString CCallWriter::GetText(bool bValue)
{
    return bValue ? QStringLiteral("true") : QStringLiteral("false");
}

QString CCallWriter::GetText(int nValue)
{
    return QString::number(nValue);
}

QString CCallWriter::GetText(const QString& strValue)
{
    const bool bLong = strValue.size() > nTextShown;
    return QLatin1Char('"') + (bLong ? strValue.left(nTextShown) + QChar(0x2026) : strValue) + QLatin1Char('"');
}

QString CCallWriter::GetText(const QUuid& idValue)
{
    return idValue.isNull() ? QStringLiteral("null") : idValue.toString(QUuid::WithoutBraces).left(nDigitsShown);
}

QString CCallWriter::GetText(const std::vector<QUuid>& vecValue)
{
    QStringList listText;
    for (size_t n = 0; n < std::min(vecValue.size(), nIdsShown); ++n) {
        listText.append(GetText(vecValue[n]));
    }
    if (vecValue.size() > nIdsShown) {
        listText.append(QStringLiteral("%1 more").arg(vecValue.size() - nIdsShown));
    }
    return QLatin1Char('[') + listText.join(QLatin1String(", ")) + QLatin1Char(']');
}

QString CCallWriter::GetCall(const char* pOperation, const QStringList& listArgument)
{
    return QLatin1String(pOperation) + QLatin1Char('(') + listArgument.join(QLatin1String(", ")) + QLatin1Char(')');
}
