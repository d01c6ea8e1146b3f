#pragma once

#include "nodes/SProcessorAllNode.h"

#include <optional>

/// Where a processor stands in a tree.
struct SNodePlace
{
    int nGroup = -1; ///< index of the group; -1 for the root
    int nIndex = 0;  ///< index in that list
};

/// The tree of one pane with what can be done to it. A plain value: the rules about who may change what
/// and when are CProcessorList's, and so is the lock. Copies are cheap.
class CNodeTree
{
public:
    const SProcessorAllNode& GetRoot() const
    {
        return node;
    }
    void SetRoot(const SProcessorAllNode& nodeNew)
    {
        node = nodeNew;
    }

    /// Takes lists of its own, which it shares with no copy.
    void Unshare();

    int GetProcessorCount() const;
    QList<SProcessorNode> GetProcessors() const; ///< all, in the order shown

    int FindGroup(const QUuid& id) const; ///< index in listGroup; -1 when there is none
    std::optional<SNodePlace> FindProcessor(const QUuid& id) const;
    bool Contains(const QUuid& id) const;
    QUuid FindByName(const QString& strName) const; ///< null when there is none

    const SProcessorNode& GetProcessor(const SNodePlace& place) const;
    SProcessorNode& EditProcessor(const SNodePlace& place);
    const SProcessorGroupNode& GetGroup(int nGroup) const
    {
        return node.listGroup.at(nGroup);
    }
    SProcessorGroupNode& EditGroup(int nGroup);

    void AppendProcessor(const SProcessorNode& processor)
    {
        node.listProcessor.append(processor);
    }
    void AppendGroup(const SProcessorGroupNode& group)
    {
        node.listGroup.append(group);
    }

    /// Takes a processor out. A Chief loses its mark, and its group its Chief.
    SProcessorNode TakeProcessor(const SNodePlace& place);

    /// To the end of a group, or of the root for -1. Stays where it is when it is there already; the
    /// answer tells whether anything changed.
    bool MoveProcessor(const SNodePlace& place, int nGroup);

    /// With its processors, or these move to the end of the root.
    void RemoveGroup(int nGroup, bool bWithProcessors);

    /// A null id stands for the root. The answer tells whether anything changed.
    bool SetExpanded(const QUuid& id, bool bExpanded);

    /// Marks one member as the Chief, or none for a null id. The answer tells whether anything changed.
    bool SetChief(int nGroup, const QUuid& idChief);

    /// The lowest number, from 1, that no group has behind a one-word name ("Group 3").
    int GetNextGroupIndex() const;

private:
    QList<SProcessorNode>& EditList(int nGroup);

    SProcessorAllNode node;
};
