#pragma once

#include "fixtures/CStoreFixture.h"
#include "model/CProcessorTreeModel.h"
#include "tree/CProcessorTree.h"

#include <QAbstractItemModelTester>

#include <memory>

/// A tree with its model, not shown, in front of a store that has read the records given. The Discovered pane
/// is current. Rows stay as they are until Rebuild().
class CModelFixture : public CStoreFixture
{
public:
    explicit CModelFixture(const SProcessorAllNode& nodeDiscovered, const SProcessorAllNode& nodeSimulator = SProcessorAllNode());

    /// Qt's model tester, which ends the run when the model breaks a rule, looks at all rows after each
    /// change of one. That is from the start, but too slow for a large list.
    void Watch();
    void Unwatch();

    /// As the tree does it, its signals blocked.
    void Rebuild();

    /// The row of a node that has one; the root's else.
    QModelIndex Index(const QUuid& id) const;

    /// The rows that are not hidden by themselves, without information rows: "all, group Stage, processor a".
    QString ShownRows() const;

    std::unique_ptr<CProcessorTree> pTree;
    CProcessorTreeModel* pModel = nullptr; ///< the tree's

private:
    std::unique_ptr<QAbstractItemModelTester> pTester;
};
