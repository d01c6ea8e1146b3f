#pragma once

#include "CorvidControl/list/CNodeTree.h"
#include "CorvidControl/list/CSelection.h"

#include <array>

/// Both panes: their trees and their selections, 0 Discovered and 1 Simulator. A plain value: the rules about
/// who may change what are CProcessorList's, and so is the lock.
class CPanes
{
public:
    static constexpr int nDiscovered = 0;
    static constexpr int nSimulator = 1;

    /// For a look while the lock is held.
    const CNodeTree& GetTree(int nPane) const
    {
        return arrTree.at(nPane);
    }

    /// For a reader to keep: nobody writes what was lent.
    const CNodeTree& Lend(int nPane) const;

    /// The tree to write to; a copy of its own when it was lent.
    CNodeTree& Edit(int nPane);

    /// Another tree, which the caller may keep.
    void Replace(int nPane, const SProcessorAllNode& node);

    /// For a look while the lock is held.
    const CSelection& GetSelection(int nPane) const
    {
        return arrSelection.at(nPane);
    }

    /// As CSelection::Set.
    bool Select(int nPane, const std::vector<QUuid>& vecId, bool& bChanged);

    /// Takes what is not in the tree any more out of the selection.
    void PruneSelection(int nPane);

    /// -1 when the node is in neither, and for the root.
    int FindPane(const QUuid& id) const;

    /// Null when it is in neither. Valid until the pane is edited.
    const SProcessorNode* FindProcessor(const QUuid& id) const;

    /// In the Discovered pane first; null when no node is called that.
    QUuid FindByName(const QString& strName) const;

    /// None when the processor is not in this pane, and for nPane -1.
    std::optional<SNodePlace> FindPlace(int nPane, const QUuid& id) const;

    /// The processor, or the first member of the group, that answers and runs strProject; null without one,
    /// and for an empty project. Valid until the pane is edited.
    const SProcessorNode* FindRunning(const QUuid& id, const QString& strProject) const;

private:
    std::array<CNodeTree, 2> arrTree;
    mutable std::array<bool, 2> arrLent{ false, false }; ///< the tree was lent since it was written
    std::array<CSelection, 2> arrSelection;
};
