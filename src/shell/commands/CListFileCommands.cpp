#include "shell/commands/CListFileCommands.h"

#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CMessageBox.h"
#include "nodes/SProcessorAllNode.h"

#include <QFileDialog>
#include <QtConcurrent>

namespace {

constexpr char szNameFilter[] = "*.kvtl";
constexpr char szProposedName[] = "New.kvtl";

/// Answers of ImportList and ExportList.
enum EnListFileResult
{
    ResultSuccess = 0,
    ResultInvalidFile = 2,
    ResultOverwriteFailed = 3,
    ResultCopyFailed = 4,
    ResultTooManyProcessors = 5,
};

QFileDialog* CreateFileDialog(QWidget* pParent)
{
    return new QFileDialog(pParent, QString(), QString(), QString());
}

} // namespace

CListFileCommands::CListFileCommands(QWidget* pParentIn, std::function<void()> fnAnnounceImportIn)
    : pParent(pParentIn), fnAnnounceImport(std::move(fnAnnounceImportIn))
{
    Q_ASSERT(GuiThread::IsCurrent());
}

void CListFileCommands::Import()
{
    if (!ConfirmOverwrite()) {
        return;
    }
    QFileDialog* pDialog = CreateFileDialog(pParent);
    pDialog->setWindowTitle(tr("Import..."));
    pDialog->setNameFilter(QString::fromLatin1(szNameFilter));
    const QString strPath = ChooseFile(pDialog);
    if (strPath.isEmpty()) {
        return;
    }
    const int nResult = g_pPrcListControl->ImportList(strPath);
    if (nResult == ResultSuccess) {
        StartImportJob();
    } else {
        ShowImportFailed(nResult);
    }
}

void CListFileCommands::Export()
{
    QFileDialog* pDialog = CreateFileDialog(pParent);
    pDialog->setAcceptMode(QFileDialog::AcceptSave);
    pDialog->setWindowTitle(tr("Save..."));
    pDialog->selectFile(QString::fromLatin1(szProposedName));
    pDialog->setNameFilter(QString::fromLatin1(szNameFilter));
    const QString strPath = ChooseFile(pDialog);
    if (strPath.isEmpty()) {
        return;
    }
    if (g_pPrcListControl->ExportList(strPath, 0) == ResultSuccess) {
        Inform(tr("Export"), tr("Export sucessfully."));
    }
}

void CListFileCommands::ShowImportFinished()
{
    Inform(tr("Import"), tr("Import sucessfully."));
}

// Looks at the top level only: processors inside groups do not count, but their groups do.
bool CListFileCommands::ConfirmOverwrite()
{
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    if (node.listGroup.size() + node.listProcessor.size() == 0) {
        return true;
    }
    return CMessageBox::question(pParent, tr("Overwrite confirmation"),
                                 tr("This operation will overwrite the processor list.\nContinue?"),
                                 CMessageBox::ButtonYes | CMessageBox::ButtonNo, CMessageBox::ButtonNo)
        == CMessageBox::ButtonYes;
}

/// Runs the dialog and releases it. Returns the file chosen; empty for none, also when the panel was ended
/// under the open dialog, which went with it: then the panel must not be used any more.
QString CListFileCommands::ChooseFile(QPointer<QFileDialog> pDialog)
{
    const bool bAccepted = pDialog->exec() == QDialog::Accepted;
    if (!pDialog) {
        return {};
    }
    const QString strPath = bAccepted ? pDialog->selectedFiles().value(0) : QString();
    pDialog->deleteLater();
    return strPath;
}

void CListFileCommands::ShowImportFailed(int nResult)
{
    switch (nResult) {
    case ResultInvalidFile:
        Inform(tr("Cannot import file"), tr("The currently imported file is invalid."));
        break;
    case ResultOverwriteFailed:
        Inform(tr("Import"), tr("Overwrite failed."));
        break;
    case ResultCopyFailed:
        Inform(tr("Import"), tr("Copy failed."));
        break;
    case ResultTooManyProcessors:
        Inform(tr("Cannot import file"), tr("The number of processors involved exceeds the limit."));
        break;
    default:
        break;
    }
}

void CListFileCommands::StartImportJob()
{
    g_pRuntimeControl->SetBusy(true);
    QtConcurrent::run([fnAnnounce = fnAnnounceImport] {
        // The null id stands for the root.
        g_pRuntimeControl->SetSelectedNodes({ QUuid() });
        g_pPrcBasicControl->RefreshProcessors();
        fnAnnounce();
        g_pRuntimeControl->SetBusy(false);
    });
}

void CListFileCommands::Inform(const QString& strTitle, const QString& strText)
{
    CMessageBox::information(pParent, strTitle, strText, CMessageBox::ButtonOk, CMessageBox::ButtonOk);
}
