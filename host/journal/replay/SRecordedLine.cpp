#include "journal/replay/SRecordedLine.h"

#include "journal/replay/SReplayedCall.h"

#include <QJsonDocument>

namespace {

// A whole group says too much for a sentence.
QString GetArgument(const QJsonValue& value)
{
    if (value.isObject()) {
        return QStringLiteral("\"%1\"").arg(value.toObject().value(QStringLiteral("name")).toString());
    }
    const QString strText = QString::fromUtf8(QJsonDocument(QJsonArray{ value }).toJson(QJsonDocument::Compact));
    return strText.mid(1, strText.size() - 2);
}

QString GetCallText(const QString& strOperation, const QJsonArray& args)
{
    QStringList listArgument;
    for (const QJsonValue& value : args) {
        listArgument.append(GetArgument(value));
    }
    return strOperation + QLatin1Char('(') + listArgument.join(QStringLiteral(", ")) + QLatin1Char(')');
}

} // namespace

QString SRecordedLine::GetText() const
{
    if (strKind == QLatin1String("call") || strKind == QLatin1String("begin")) {
        return GetCallText(strOperation, fields.value(QStringLiteral("args")).toArray());
    }
    if (strKind == QLatin1String("message")) {
        return QStringLiteral("message %1").arg(fields.value(QStringLiteral("message")).toInt());
    }
    return strOperation.isEmpty() ? strKind : strOperation;
}

QString SReplayedCall::GetText() const
{
    return GetCallText(strOperation, args);
}
