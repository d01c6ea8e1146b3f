#pragma once

#include "CorvidControl/file/JsonParts.h"
#include "CorvidControl/list/SListLimits.h"
#include "nodes/SProcessorGroupNode.h"

#include <QStringList>

#include <optional>

/// Reads the values of single nodes out of a damaged list, and mends those that no list file may hold. It knows
/// the ids that it has given out, so one object reads one list.
class CNodeSalvage
{
public:
    explicit CNodeSalvage(const SListLimits& limitsIn) : limits(limitsIn) { }

    /// strPlace names it in the faults. None without an address, or where it was read before.
    std::optional<SProcessorNode> ReadProcessor(const SJsonPart& part, const QString& strPlaceNow);

    /// Without its processors.
    SProcessorGroupNode ReadGroup(const SJsonPart& part, const QString& strPlaceNow, const QString& strSubstitute);

    /// A good name: that under the key "name", mended, or the substitute.
    QString ReadRootName(const SJsonPart& part, const QString& strSubstitute);

    /// One line for each value that was mended and each node that was left out, in order.
    QStringList GetFaults() const
    {
        return listFault;
    }

    /// How many nodes have a value that was mended.
    int GetMended() const
    {
        return nMended;
    }

    /// A node was left out.
    void AddFault(const QString& strPlaceNow, const QString& strReason);

private:
    void Begin(const SJsonPart& part, const QString& strPlaceNow);
    void End();
    void Mend(const QString& strKey, const QString& strReason);
    bool ReadBool(const QString& strKey, bool bDefault);
    qint64 ReadNumber(const QString& strKey, qint64 nLeast, qint64 nMost, qint64 nDefault);
    QString ReadText(const QString& strKey);
    QString ReadName(const QString& strSubstitute);
    QUuid ReadId(const QString& strKey, bool bNeeded);
    QUuid TakeId(const QUuid& id);
    QSet<int> ReadNumbers(const QString& strKey);

    const SListLimits limits;
    QStringList listFault;
    QHash<QUuid, quint32> hashTaken; ///< ids with the address of the processor; 0 for a group
    int nMended = 0;

    QJsonObject object; ///< of the node that is being read; so are those below
    QString strPlace;
    bool bMended = false;
};
