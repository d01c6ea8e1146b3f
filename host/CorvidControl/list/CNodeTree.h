#pragma once

#include "nodes/SProcessorAllNode.h"

#include <optional>

/// Where a processor stands in a tree. Valid until nodes come, go or move.
struct SNodePlace
{
    int nGroup = -1; ///< index of the group; -1 for the root
    int nIndex = 0;  ///< index in that list
};

/// The tree of one pane with what can be done to it. A plain value: the rules about who may change what
/// and when are CProcessorList's, and so is the lock. Copies are cheap. An index or a place that is handed in
/// must be one of this tree.
class CNodeTree
{
public:
    /// The tree as the panel reads it.
    const SProcessorAllNode& GetRoot() const
    {
        return node;
    }

    /// Takes another tree as it is, without a check.
    void SetRoot(const SProcessorAllNode& nodeNew)
    {
        node = nodeNew;
    }

    /// Takes lists of its own, which it shares with no copy.
    void Unshare();

    int GetProcessorCount() const;               ///< members of groups included
    QList<SProcessorNode> GetProcessors() const; ///< all, in the order shown

    QList<QUuid> GetIds() const; ///< of all groups and processors

    int FindGroup(const QUuid& id) const;                              ///< index in listGroup; -1 when there is none
    std::optional<SNodePlace> FindProcessor(const QUuid& id) const;    ///< none when it is not there
    bool Contains(const QUuid& id) const;                              ///< a group or a processor; never the root
    QUuid FindByName(const QString& strName) const;                    ///< the first in the order shown; null without one
    QString GetName(const QUuid& id) const;                            ///< of a group or a processor; empty for any other id
    const SProcessorNode& GetProcessor(const SNodePlace& place) const; ///< valid until the tree is changed
    const SProcessorGroupNode& GetGroup(int nGroup) const              ///< valid until the tree is changed
    {
        return node.listGroup.at(nGroup);
    }

    /// To write to, at once: the reference ends with the next change.
    SProcessorNode& EditProcessor(const SNodePlace& place);

    /// To the end of the root.
    void AppendProcessor(const SProcessorNode& processor)
    {
        node.listProcessor.append(processor);
    }

    /// Behind the other groups.
    void AppendGroup(const SProcessorGroupNode& group)
    {
        node.listGroup.append(group);
    }

    /// Takes a processor out. A Chief loses its mark, and its group its Chief.
    SProcessorNode TakeProcessor(const SNodePlace& place);

    /// To the end of a group, or of the root for -1. Returns false when it is there already, and stays where it is.
    bool MoveProcessor(const SNodePlace& place, int nGroup);

    /// With its processors, or these move to the end of the root.
    void RemoveGroup(int nGroup, bool bWithProcessors);

    /// A null id stands for the root. Returns false when nothing has changed.
    bool SetExpanded(const QUuid& id, bool bExpanded);

    /// The node must be there.
    void SetName(const QUuid& id, const QString& strName);

    /// Marks one member as the Chief, or none for a null id. Returns false when nothing has changed.
    bool SetChief(int nGroup, const QUuid& idChief);

    /// The lowest number, from 1, that no group has behind a one-word name ("Group 3").
    int GetNextGroupIndex() const;

private:
    QList<SProcessorNode>& EditList(int nGroup);
    SProcessorGroupNode& EditGroup(int nGroup);
    SNode* EditNode(const QUuid& id);

    SProcessorAllNode node;
};
