#pragma once

#include "nodes/SProcessorAllNode.h"

#include <QJsonObject>

class CJournalMask;

/// The last reading of one tree, to write the next one as the difference to it. One thread.
///
/// The first reading is {"whole": root}; one that is the same {"same": true}; any other {"change": ...}: the fields of the
/// root that differ, and under "groups" and "processors" what has become of the list. A list of the same length has
/// "set", pairs of a position and the fields that differ; another "at", "remove" and "insert".
class CTreeReading
{
public:
    /// The difference to the reading before, which node then replaces.
    QJsonObject Take(const SProcessorAllNode& node, CJournalMask& mask);

    /// The next reading is whole.
    void Forget();

    /// How many records were compared so far. None, where the lists are shared with the last reading.
    quint64 GetComparisons() const;

private:
    template <typename Node>
    QJsonObject GetListChange(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask);
    template <typename Node> QJsonObject GetSet(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask);
    template <typename Node> QJsonObject GetSplice(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask);
    template <typename Node> bool IsSame(const Node& nodeOld, const Node& nodeNew);
    QJsonObject GetChange(const SProcessorNode& nodeOld, const SProcessorNode& nodeNew, CJournalMask& mask);
    QJsonObject GetChange(const SProcessorGroupNode& nodeOld, const SProcessorGroupNode& nodeNew, CJournalMask& mask);
    QJsonObject GetChange(const SProcessorAllNode& nodeOld, const SProcessorAllNode& nodeNew, CJournalMask& mask);
    static bool IsSameRecord(const SProcessorNode& nodeOld, const SProcessorNode& nodeNew);
    bool IsSameRecord(const SProcessorGroupNode& nodeOld, const SProcessorGroupNode& nodeNew);
    template <typename Node> bool IsSameList(const QList<Node>& listOld, const QList<Node>& listNew);

    SProcessorAllNode nodeLast;
    bool bKnown = false;
    quint64 nComparisons = 0;
};
