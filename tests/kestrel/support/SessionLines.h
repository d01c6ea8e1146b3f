#pragma once

#include <QJsonObject>
#include <QVector>

/// The recorded session of replay/record.py as lines, to be replayed otherwise than it was.
namespace SessionLines {

/// All, or as many, with the header.
QVector<QJsonObject> Get(int nLines = -1);

/// A gesture, or what came of one, behind the last line.
void Append(QVector<QJsonObject>& vecLine, const QString& strOperation, QJsonObject fields);

/// Where a call of that operation stands for the first time.
int Find(const QVector<QJsonObject>& vecLine, const QString& strOperation);

QByteArray Write(const QVector<QJsonObject>& vecLine);

/// When the line was written, as --at takes it, some milliseconds later.
QString GetTime(const QJsonObject& line, int nLaterMs = 0);

} // namespace SessionLines
