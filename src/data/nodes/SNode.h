#pragma once

#include <QString>

/// What every node of the tree has. Nodes are plain values of their exact type, copied freely and never
/// deleted through this base. A change to a copy never reaches its source.
struct SNode
{
    SNode() = default;
    SNode(const QString& strNameIn, qint32 nNodeTypeIn) : strName(strNameIn), nNodeType(nNodeTypeIn) { }

    /// The search rule: true when the node is a hit for strText. May change bExpanded, so that a hit in
    /// a part that is folded away comes into sight. The base never matches and changes nothing.
    virtual bool MatchText(const QString& strText);

    /// The row is shown expanded: a group its processors, a processor its information row. Belongs to
    /// the control library and comes back with every reading.
    bool bExpanded = true;

    QString strName;      ///< text of the row
    qint32 nNodeType = 0; ///< EnNodeType [C-node-1 required]; takes no part in any comparison

protected:
    SNode(const SNode&) = default;
    SNode(SNode&&) = default;
    SNode& operator=(const SNode&) = default;
    SNode& operator=(SNode&&) = default;
    ~SNode() = default;
};
