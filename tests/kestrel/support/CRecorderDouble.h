#pragma once

#include "journal/recording/CJournalFormat.h"
#include "journal/recording/ICallRecorder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <mutex>

/// Keeps what is recorded, as the objects of its lines.
class CRecorderDouble : public ICallRecorder
{
public:
    explicit CRecorderDouble(bool bMask = false) : format(bMask, std::chrono::steady_clock::now()) { }

    void Begin(SJournalRecord&) override { }

    void Write(SJournalRecord&& record) override
    {
        const std::lock_guard<std::mutex> lock(mutex);
        listLine.append(QJsonDocument::fromJson(format.GetLine(record)).object());
    }

    /// The lines of one operation.
    QList<QJsonObject> Pick(const QString& strOperation)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QList<QJsonObject> listPicked;
        for (const QJsonObject& line : listLine) {
            if (line.value(QStringLiteral("operation")).toString() == strOperation) {
                listPicked.append(line);
            }
        }
        return listPicked;
    }

    QList<QJsonObject> All()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return listLine;
    }

    /// The last of them; empty when there is none.
    QJsonObject Last(const QString& strOperation)
    {
        return Pick(strOperation).isEmpty() ? QJsonObject() : Pick(strOperation).constLast();
    }

    /// The numbers of all messages, in their order.
    QVector<int> Messages()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QVector<int> vecMessage;
        for (const QJsonObject& line : listLine) {
            if (line.value(QStringLiteral("kind")).toString() == QLatin1String("message")) {
                vecMessage.append(line.value(QStringLiteral("message")).toInt());
            }
        }
        return vecMessage;
    }

    void Forget()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        listLine.clear();
    }

    /// The operations in their order.
    QStringList Operations()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QStringList listOperation;
        for (const QJsonObject& line : listLine) {
            listOperation.append(line.value(QStringLiteral("operation")).toString());
        }
        return listOperation;
    }

    /// All lines as one text.
    QString Text()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QJsonArray array;
        for (const QJsonObject& line : listLine) {
            array.append(line);
        }
        return QString::fromUtf8(QJsonDocument(array).toJson());
    }

private:
    std::mutex mutex; ///< guards all below
    CJournalFormat format;
    QList<QJsonObject> listLine;
};
