#pragma once

#include <QUuid>

#include <vector>

class CNodeTree;

/// The selection of one pane. A plain value, the lock is CProcessorList's.
class CSelection
{
public:
    const std::vector<QUuid>& GetIds() const
    {
        return vecId;
    }

    /// True when any of vecNew, or all of none, can be selected; bChanged tells whether that is another
    /// selection than before.
    bool Set(const CNodeTree& tree, const std::vector<QUuid>& vecNew, bool& bChanged);

    /// Leaves out what is not in the tree any more; the root takes the place of the last.
    void Prune(const CNodeTree& tree);

    /// The selected processors and the members of selected groups, each once.
    std::vector<QUuid> FindProcessors(const CNodeTree& tree) const;

private:
    std::vector<QUuid> vecId{ QUuid() };
};
