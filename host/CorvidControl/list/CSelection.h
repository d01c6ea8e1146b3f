#pragma once

#include <QUuid>

#include <vector>

class CNodeTree;

/// The selection of one pane; a null id is the root. At first the root is selected. A plain value, the lock is
/// CProcessorList's.
class CSelection
{
public:
    /// In the order in which they were set.
    const std::vector<QUuid>& GetIds() const
    {
        return vecId;
    }

    /// Leaves out what is not in the tree. Returns false, and keeps the old selection, when nothing of vecNew is
    /// left; an empty vecNew selects nothing. bChanged becomes true for another selection than before.
    bool Set(const CNodeTree& tree, const std::vector<QUuid>& vecNew, bool& bChanged);

    /// Leaves out what is not in the tree any more; the root takes the place of the last.
    void Prune(const CNodeTree& tree);

    /// The selected processors and the members of selected groups, each once, in the order of the selection.
    std::vector<QUuid> FindProcessors(const CNodeTree& tree) const;

private:
    std::vector<QUuid> vecId{ QUuid() };
};
