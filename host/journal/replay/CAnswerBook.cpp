#include "journal/replay/CAnswerBook.h"

#include "journal/replay/CRecordedRun.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

QByteArray GetKey(const QString& strObject, const QString& strOperation, const QJsonArray& args)
{
    return strObject.toUtf8() + '.' + strOperation.toUtf8() + QJsonDocument(args).toJson(QJsonDocument::Compact);
}

} // namespace

CAnswerBook::CAnswerBook(const CRecordedRun& run)
{
    for (const SRecordedLine& line : run.GetLines()) {
        if (line.strKind == QLatin1String("call")) {
            const QJsonArray args = line.fields.value(QStringLiteral("args")).toArray();
            mapLine[GetKey(line.strObject, line.strOperation, args)].append(&line);
        }
    }
}

const SRecordedLine* CAnswerBook::Find(const SReplayedCall& call, const QJsonArray& args, quint64 nBefore) const
{
    const QVector<const SRecordedLine*> vecLine = mapLine.value(GetKey(call.strObject, call.strOperation, args));
    if (vecLine.isEmpty()) {
        return nullptr;
    }
    const auto it = std::lower_bound(vecLine.begin(), vecLine.end(), nBefore,
                                     [](const SRecordedLine* pLine, quint64 n) { return pLine->nNumber < n; });
    return it == vecLine.begin() ? vecLine.first() : *(it - 1);
}
