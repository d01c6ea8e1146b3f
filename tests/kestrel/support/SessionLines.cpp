#include "SessionLines.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr int nGestureMs = 20; ///< from one to the next

QDateTime Date(const QJsonObject& line)
{
    return QDateTime::fromString(line["date"].toString(), Qt::ISODateWithMs);
}

} // namespace

QVector<QJsonObject> SessionLines::Get(int nLines)
{
    QFile file(SESSION_FOLDER "/000001.jsonl");
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no recorded session");
    }
    QVector<QJsonObject> vecLine;
    while (!file.atEnd() && vecLine.size() != nLines) {
        vecLine.append(QJsonDocument::fromJson(file.readLine()).object());
    }
    return vecLine;
}

void SessionLines::Append(QVector<QJsonObject>& vecLine, const QString& strOperation, QJsonObject fields)
{
    double dNumber = 0;
    for (const QJsonObject& line : qAsConst(vecLine)) {
        dNumber = std::max(dNumber, line["n"].toDouble());
    }
    const QJsonObject& last = vecLine.constLast();
    fields["n"] = dNumber + 1;
    fields["t"] = last["t"].toDouble() + nGestureMs * 1000;
    fields["date"] = Date(last).addMSecs(nGestureMs).toString(Qt::ISODateWithMs);
    fields["kind"] = "user";
    fields["thread"] = "gui";
    fields["object"] = "User";
    fields["operation"] = strOperation;
    vecLine.append(fields);
}

int SessionLines::Find(const QVector<QJsonObject>& vecLine, const QString& strOperation)
{
    const auto isIt = [&](const QJsonObject& line) { return line["operation"].toString() == strOperation; };
    return static_cast<int>(std::find_if(vecLine.begin(), vecLine.end(), isIt) - vecLine.begin());
}

QByteArray SessionLines::Write(const QVector<QJsonObject>& vecLine)
{
    QByteArray bytes;
    for (const QJsonObject& line : vecLine) {
        bytes += QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
    }
    return bytes;
}

QString SessionLines::GetTime(const QJsonObject& line, int nLaterMs)
{
    return Date(line).addMSecs(nLaterMs).toString("HH:mm:ss.zzz");
}
