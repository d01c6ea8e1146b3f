#include "Kestrel/replay/ReplayListing.h"

#include "Kestrel/replay/CListingNames.h"
#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/GestureText.h"
#include "Kestrel/replay/ReplayTime.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

const SRecordedLine* Find(const CRecordedRun& run, quint64 nNumber)
{
    const QVector<SRecordedLine>& vecLine = run.GetLines();
    const auto it = std::lower_bound(vecLine.begin(), vecLine.end(), nNumber,
                                     [](const SRecordedLine& line, quint64 n) { return line.nNumber < n; });
    return it != vecLine.end() && it->nNumber == nNumber ? &*it : nullptr;
}

bool IsCommand(const SRecordedLine& line)
{
    const QString& strDo = line.strOperation;
    const bool bCall = line.strKind == QLatin1String("call") || line.strKind == QLatin1String("begin");
    return bCall && !strDo.startsWith(QLatin1String("Get")) && !strDo.startsWith(QLatin1String("Is"))
        && strDo != QLatin1String("Attach") && strDo != QLatin1String("Detach");
}

QString GetJson(const QJsonValue& value)
{
    const QString strText = QString::fromUtf8(QJsonDocument(QJsonArray{ value }).toJson(QJsonDocument::Compact));
    return strText.mid(1, strText.size() - 2);
}

QString GetCommand(const SRecordedLine& line, const CListingNames& names)
{
    const QJsonValue result = line.fields.value(QStringLiteral("result"));
    QString strText = names.AddNames(line.GetText());
    if (line.strKind == QLatin1String("begin")) {
        return strText + QStringLiteral(", which never came back");
    }
    strText += result.isUndefined() ? QString() : QStringLiteral(" = ") + names.AddNames(GetJson(result));
    return line.fields.value(QStringLiteral("threw")).toBool() ? strText + QStringLiteral(", threw") : strText;
}

QString GetCause(const SRecordedLine* pLine)
{
    return pLine->strKind == QLatin1String("note") ? pLine->fields.value(QStringLiteral("text")).toString() : pLine->strOperation;
}

QString GetMessage(const CRecordedRun& run, const SRecordedLine& line)
{
    QStringList listCause;
    const QJsonArray causes = line.fields.value(QStringLiteral("cause")).toArray();
    for (const QJsonValue& cause : causes) {
        const SRecordedLine* pCause = Find(run, static_cast<quint64>(cause.toDouble()));
        listCause.append(pCause ? GetCause(pCause) : QStringLiteral("n %1").arg(cause.toDouble()));
    }
    const QString strName = line.fields.value(QStringLiteral("name")).toString();
    const QString strText = QStringLiteral("%1 %2").arg(line.fields.value(QStringLiteral("message")).toInt()).arg(strName);
    return listCause.isEmpty() ? strText : strText + QStringLiteral(", by ") + listCause.join(QStringLiteral(", "));
}

QString GetGuard(const SRecordedLine& line)
{
    return QStringLiteral("%1 of %2 ms during %3")
        .arg(line.strOperation)
        .arg(line.fields.value(QStringLiteral("ms")).toInt())
        .arg(line.fields.value(QStringLiteral("during")).toString());
}

// Kind and text; empty for a line that is not listed.
QString GetEvent(const CRecordedRun& run, const SRecordedLine& line, const CListingNames& names)
{
    const auto make = [](const char* szKind, const QString& strText) {
        return strText.isEmpty() ? QString() : QLatin1String(szKind) + QStringLiteral(": ") + strText;
    };
    if (line.strKind == QLatin1String("user")) {
        return make("user", GestureText::Get(line, names));
    }
    if (line.strKind == QLatin1String("message")) {
        return make("message", GetMessage(run, line));
    }
    if (line.strKind == QLatin1String("note")) {
        return make(line.strObject == QLatin1String("Devices") ? "devices" : "note",
                    line.fields.value(QStringLiteral("text")).toString());
    }
    if (line.strKind == QLatin1String("guard")) {
        return make("held up", GetGuard(line));
    }
    return IsCommand(line) ? make("command", GetCommand(line, names)) : QString();
}

} // namespace

QString ReplayListing::GetText(const CReplaySource& source)
{
    CListingNames names;
    QStringList listLine;
    const CRecordedRun& run = source.GetRun();
    for (const SRecordedLine& line : run.GetLines()) {
        names.Follow(line);
        const QString strEvent = GetEvent(run, line, names);
        if (!strEvent.isEmpty()) {
            listLine.append(ReplayTime::GetText(source.GetStart(), line.date) + QStringLiteral("  ") + strEvent);
        }
    }
    return listLine.join(QLatin1Char('\n'));
}
