#pragma once

#include "Builders.h"
#include "CNameRegistry.h"
#include "data/CProcessorTreeData.h"
#include "double/CControlDouble.h"
#include "model/CProcessorTreeModel.h"
#include "tree/CProcessorTree.h"

#include <QAbstractItemModelTester>

#include <memory>

/// A tree with its model in front of the process's store, which has read the records given. The
/// Discovered pane is current.
struct SModelRig
{
    explicit SModelRig(const SProcessorAllNode& nodeDiscovered, const SProcessorAllNode& nodeSimulator = SProcessorAllNode());

    /// Qt's model tester, which ends the run when the model breaks a rule, looks at all rows after each
    /// change of one. That is from the start, but too slow for a large list.
    void Watch();
    void Unwatch();

    /// Changes the library and lets the store read it. Rows stay as they are.
    void Change(const SProcessorAllNode& nodeDiscovered);
    void ShowPane(bool bSimulator);

    /// As the tree does it, its signals blocked.
    void Rebuild();

    /// The row of a node that has one; the root's else.
    QModelIndex Index(const QUuid& id) const;

    /// The rows that are not hidden by themselves, without information rows: "all, group Stage, processor a".
    QString ShownRows() const;

    CControlDouble control;
    std::unique_ptr<CProcessorTree> pTree;
    CProcessorTreeModel* pModel = nullptr; ///< the tree's

private:
    std::unique_ptr<QAbstractItemModelTester> pTester;
};
