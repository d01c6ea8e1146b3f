#pragma once

#include "CorvidControl/list/SListLimits.h"
#include "nodes/SProcessorAllNode.h"

#include <QJsonObject>
#include <QSet>
#include <QStringList>

/// Reads one list out of its JSON. Strict: each key of the schema must be there with a value of its
/// kind, and no other key. The first fault counts; what is read behind it is worthless.
class CListReader
{
public:
    /// bMendIn: names that can be mended are, as NameRules::Mend does; otherwise they are faults.
    CListReader(const SListLimits& limitsIn, bool bMendIn);

    /// Once. What it returns counts only without a fault.
    SProcessorAllNode ReadRoot(const QJsonObject& object);

    /// The first fault, with the place in the list; empty when there is none.
    QString GetFault() const
    {
        return strFault;
    }

    /// True when the fault is that there is more than the limits allow.
    bool IsTooLarge() const
    {
        return bTooLarge;
    }

    /// How many keys the objects had that were read.
    int GetKeyCount() const
    {
        return nKeys;
    }

    /// One line for each name that was mended.
    QStringList GetMended() const
    {
        return listMended;
    }

private:
    SProcessorGroupNode ReadGroup(const QJsonObject& object, int nGroup);
    SProcessorNode ReadProcessor(const QJsonObject& object);
    QList<SProcessorNode> ReadProcessors(const QJsonObject& object);
    void CheckCount(int nCount, int nMost, const QString& strWhat);

    void CheckKeys(const QJsonObject& object, const QStringList& listKey);
    bool ReadBool(const QJsonObject& object, const QString& strKey);
    qint64 ReadNumber(const QJsonObject& object, const QString& strKey, qint64 nLeast, qint64 nMost);
    qint64 CheckNumber(const QJsonValue& value, const QString& strKey, qint64 nLeast, qint64 nMost);
    QString ReadText(const QJsonObject& object, const QString& strKey);
    QString ReadName(const QJsonObject& object, const QString& strSubstitute);
    QUuid ReadId(const QJsonObject& object, const QString& strKey);
    QUuid ReadNodeId(const QJsonObject& object);
    quint32 ReadAddress(const QJsonObject& object);
    QSet<int> ReadNumbers(const QJsonObject& object, const QString& strKey);
    QJsonArray ReadArray(const QJsonObject& object, const QString& strKey);
    QJsonObject CheckObject(const QJsonValue& value);
    void Fail(const QString& strReason);

    const SListLimits limits;
    const bool bMend;
    QString strFault;
    QStringList listMended;
    QString strPlace; ///< the node that is being read, for the fault
    QSet<QUuid> setId;
    int nProcessors = 0;
    int nKeys = 0;
    bool bTooLarge = false;
};
