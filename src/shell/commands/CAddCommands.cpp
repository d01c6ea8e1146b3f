#include "shell/commands/CAddCommands.h"

#include "data/GuiThread.h"
#include "dialogs/CAddProcessorDlg.h"
#include "dialogs/CAddSimulatorDlg.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "nodes/SProcessorGroupNode.h"

#include <thread>

namespace {

/// Runs a dialog that lives on the stack. When its parent is destroyed meanwhile, which would delete its
/// children, the dialog leaves it in time and counts as rejected.
int Run(QDialog& dlg)
{
    QObject::connect(dlg.parentWidget(), &QObject::destroyed, &dlg, [&dlg] {
        dlg.reject();
        dlg.setParent(nullptr);
    });
    return dlg.exec();
}

} // namespace

CAddCommands::CAddCommands(QWidget* pParentIn, std::function<void()> fnUpdateToolBarIn,
                           std::function<void()> fnAnnounceSelectionIn)
    : pParent(pParentIn), fnUpdateToolBar(std::move(fnUpdateToolBarIn)), fnAnnounceSelection(std::move(fnAnnounceSelectionIn))
{
    Q_ASSERT(GuiThread::IsCurrent());
}

void CAddCommands::AddGroup()
{
    const int nIndex = g_pPrcListControl->GetNextGroupIndex();
    SProcessorGroupNode group;
    group.strName = tr("Group %1").arg(nIndex);
    group.idNode = QUuid::createUuid();
    g_pPrcListControl->AddGroup(group, true);
    // Asked for before the group has a row.
    g_pRuntimeControl->SetSelectedNodes({ group.idNode });
    fnUpdateToolBar();
    fnAnnounceSelection();
}

void CAddCommands::AddSimulators()
{
    CAddSimulatorDlg dlg(pParent);
    if (Run(dlg) != QDialog::Accepted) {
        return;
    }
    SSimulatorRequest request;
    request.nCount = dlg.GetCount();
    request.nOutput = dlg.GetOutput();
    request.nType = dlg.GetType();
    g_pPrcBasicControl->AddSimulators(request);
}

void CAddCommands::AddProcessor()
{
    CAddProcessorDlg dlg(pParent);
    if (Run(dlg) != QDialog::Accepted) {
        return;
    }
    const QHostAddress address = dlg.GetIP();
    g_pRuntimeControl->SetBusy(true);
    std::thread([fnAnnounce = fnAnnounceSelection, address] {
        g_pPrcBasicControl->AddProcessor(address.toIPv4Address());
        fnAnnounce();
        g_pRuntimeControl->SetBusy(false);
    }).detach();
}
