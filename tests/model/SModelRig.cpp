#include "SModelRig.h"

#include "TreeText.h"

#include <QSignalBlocker>

SModelRig::SModelRig(const SProcessorAllNode& nodeDiscovered, const SProcessorAllNode& nodeSimulator)
{
    control.Set([&](SControlAnswers& answers) {
        answers.nodeDiscovered = nodeDiscovered;
        answers.nodeSimulator = nodeSimulator;
    });
    g_pProcessorTreeData->Refresh();
    pTree = std::make_unique<CProcessorTree>(nullptr, true);
    pModel = dynamic_cast<CProcessorTreeModel*>(pTree->model());
    Watch();
    control.ClearJournal();
}

void SModelRig::Watch()
{
    pTester = std::make_unique<QAbstractItemModelTester>(pModel, QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void SModelRig::Unwatch()
{
    pTester.reset();
}

void SModelRig::Change(const SProcessorAllNode& nodeDiscovered)
{
    control.Set([&](SControlAnswers& answers) { answers.nodeDiscovered = nodeDiscovered; });
    g_pProcessorTreeData->Refresh();
    control.ClearJournal();
}

void SModelRig::ShowPane(bool bSimulator)
{
    control.Set([&](SControlAnswers& answers) { answers.bSimulatorPane = bSimulator; });
    g_pProcessorTreeData->SetSimulatorPane(bSimulator);
}

void SModelRig::Rebuild()
{
    const QSignalBlocker blocker(pTree.get());
    pModel->RebuildFromStore();
}

QModelIndex SModelRig::Index(const QUuid& id) const
{
    return pModel->GetIndexById(id);
}

QString SModelRig::ShownRows() const
{
    QStringList listRow;
    for (const QString& strLine : TreeText(pTree.get()).split('\n', Qt::SkipEmptyParts)) {
        const QString strRow = strLine.trimmed().remove(" [expanded]").remove(" [selected]");
        if (!strRow.endsWith("[hidden]") && !strRow.startsWith("info")) {
            listRow.append(strRow);
        }
    }
    return listRow.join(", ");
}
