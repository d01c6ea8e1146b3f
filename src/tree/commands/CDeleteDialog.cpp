#include "tree/commands/CDeleteDialog.h"

#include "data/GuiThread.h"
#include "interfaces/widgets/CCommonOptionDlg.h"
#include "interfaces/widgets/CMessageBox.h"

#include <QPointer>

namespace {

constexpr char szGroupAndProcessorsIcon[] = ":/image/treeView/deleteGroup/delete.svg";
constexpr char szGroupOnlyIcon[] = ":/image/treeView/deleteGroup/deleteGroup.svg";

enum EnOption
{
    OptionGroupAndProcessors = 1,
    OptionGroupOnly = 2,
};

} // namespace

CDeleteDialog::CDeleteDialog(QWidget* pParentIn) : pParent(pParentIn) { }

bool CDeleteDialog::Ask(EnDeleteQuestion question, bool& bWithProcessors)
{
    Q_ASSERT(GuiThread::IsCurrent());
    bool bWith = false;
    bool bGo = true;
    switch (question) {
    case EnDeleteQuestion::None:
        break;
    case EnDeleteQuestion::WithOrWithoutProcessors:
        bGo = AskForGroups(bWith);
        break;
    case EnDeleteQuestion::Processors:
        bGo = Confirm(tr("Delete processors"), tr("Do you want to delete all the selected processors?"));
        break;
    case EnDeleteQuestion::GroupsAndProcessors:
        bWith = true;
        bGo = Confirm(tr("Delete groups and processors"), tr("Do you want to delete all the selected groups and processors?"));
        break;
    }
    if (bGo) {
        bWithProcessors = bWith;
    }
    return bGo;
}

bool CDeleteDialog::Confirm(const QString& strTitle, const QString& strText) const
{
    return CMessageBox::question(pParent, strTitle, strText, CMessageBox::ButtonYes | CMessageBox::ButtonNo,
                                 CMessageBox::ButtonNo)
        == CMessageBox::ButtonYes;
}

bool CDeleteDialog::AskForGroups(bool& bWithProcessors) const
{
    // On the heap: the parent owns the dialog too and may be destroyed while exec() runs.
    const QPointer<CCommonOptionDlg> pDialog = new CCommonOptionDlg(pParent, tr("Delete"));
    int nOption = 0;
    if (pDialog->AddOption(QIcon(szGroupAndProcessorsIcon), tr("Delete group and processors"))
        && pDialog->AddOption(QIcon(szGroupOnlyIcon), tr("Delete group only"))) {
        nOption = pDialog->exec();
    }
    delete pDialog;
    bWithProcessors = nOption == OptionGroupAndProcessors;
    return nOption == OptionGroupAndProcessors || nOption == OptionGroupOnly;
}
