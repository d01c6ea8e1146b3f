#pragma once

#include "data/SProcessorAllNode.h"

#include <QJsonObject>
#include <QSet>
#include <QStringList>

/// Reads one list out of its JSON. Strict: each key of the schema must be there with a value of its
/// kind, and no other key. The first fault counts; what is read behind it is worthless.
class CListReader
{
public:
    SProcessorAllNode ReadRoot(const QJsonObject& object);

    /// The first fault, with the place in the list; empty when there is none.
    QString GetFault() const
    {
        return strFault;
    }
    int GetProcessorCount() const
    {
        return nProcessors;
    }

private:
    SProcessorGroupNode ReadGroup(const QJsonObject& object);
    SProcessorNode ReadProcessor(const QJsonObject& object);
    QList<SProcessorNode> ReadProcessors(const QJsonObject& object);

    void CheckKeys(const QJsonObject& object, const QStringList& listKey);
    bool ReadBool(const QJsonObject& object, const QString& strKey);
    qint64 ReadNumber(const QJsonObject& object, const QString& strKey, qint64 nLeast, qint64 nMost);
    qint64 CheckNumber(const QJsonValue& value, const QString& strKey, qint64 nLeast, qint64 nMost);
    QString ReadText(const QJsonObject& object, const QString& strKey);
    QString ReadName(const QJsonObject& object);
    QUuid ReadId(const QJsonObject& object, const QString& strKey);
    QUuid ReadNodeId(const QJsonObject& object);
    quint32 ReadAddress(const QJsonObject& object);
    QSet<int> ReadNumbers(const QJsonObject& object, const QString& strKey);
    QJsonArray ReadArray(const QJsonObject& object, const QString& strKey);
    QJsonObject CheckObject(const QJsonValue& value);
    void Fail(const QString& strReason);

    QString strFault;
    QString strPlace; ///< the node that is being read, for the fault
    QSet<QUuid> setId;
    int nProcessors = 0;
};
