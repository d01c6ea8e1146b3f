#include "CModelFixture.h"

#include "TreeText.h"

#include <QSignalBlocker>

CModelFixture::CModelFixture(const SProcessorAllNode& nodeDiscovered, const SProcessorAllNode& nodeSimulator)
    : CStoreFixture([&](SControlAnswers& answers) {
          answers.nodeDiscovered = nodeDiscovered;
          answers.nodeSimulator = nodeSimulator;
      })
{
    pTree = std::make_unique<CProcessorTree>(nullptr, true);
    pModel = dynamic_cast<CProcessorTreeModel*>(pTree->model());
    Watch();
    control.ClearJournal();
}

void CModelFixture::Watch()
{
    pTester = std::make_unique<QAbstractItemModelTester>(pModel, QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void CModelFixture::Unwatch()
{
    pTester.reset();
}

void CModelFixture::Rebuild()
{
    const QSignalBlocker blocker(pTree.get());
    pModel->RebuildFromStore();
}

QModelIndex CModelFixture::Index(const QUuid& id) const
{
    return pModel->GetIndexById(id);
}

QString CModelFixture::ShownRows() const
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
