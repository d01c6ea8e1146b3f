#include "dialogs/CAddProcessorDlg.h"

#include "dialogs/CAddressScan.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int nDialogWidth = 247;
constexpr int nDialogMargin = 16;
constexpr int nFieldHeight = 24;
constexpr int nFieldSpacing = 8;

/// The reserved addresses, then those in use by the list.
QList<quint32> GetTakenIPs()
{
    QList<quint32> listIP;
    g_pConfigControl->GetReservedIPs(listIP);
    std::vector<quint32> vecIP;
    g_pPrcListControl->GetProcessorIPs(vecIP);
    for (quint32 nIP : vecIP) {
        listIP.append(nIP);
    }
    return listIP;
}

} // namespace

CAddProcessorDlg::CAddProcessorDlg(QWidget* parent) : CBaseDialog(parent, tr("Add a processor"), false, ButtonsOkCancel)
{
    setFixedWidth(nDialogWidth);
    SetCanResize(false);
    SetTransparentMask();
    SetTransitionAnimate();
    InitWidget();
    InitLayout();
    pEditIP->SetAddress(GetFreeIP());
    // Only now, so that the address proposed cannot disable the button.
    SetConnection();
}

QHostAddress CAddProcessorDlg::GetIP() const
{
    quint32 nIP = 0;
    pEditIP->GetAddress(nIP);
    return QHostAddress(nIP);
}

void CAddProcessorDlg::InitWidget()
{
    pLabelIP = new QLabel(QStringLiteral("IP"), this);
    pEditIP = new CIPEdit(this);
    pEditIP->SetLimitIP(GetForbiddenIPs());
    pLabelIP->setFixedHeight(nFieldHeight);
    pEditIP->setFixedHeight(nFieldHeight);
    pLabelIP->setBuddy(pEditIP);
}

void CAddProcessorDlg::InitLayout()
{
    QBoxLayout* pContent = GetContentLayout();
    pContent->setContentsMargins(nDialogMargin, nDialogMargin, nDialogMargin, nDialogMargin);
    auto* pRow = new QHBoxLayout;
    pRow->setContentsMargins(0, 0, 0, 0);
    pRow->setSpacing(nFieldSpacing);
    pRow->addWidget(pLabelIP, 0);
    pRow->addWidget(pEditIP, 1);
    pContent->addLayout(pRow);
}

void CAddProcessorDlg::SetConnection()
{
    connect(pEditIP, &CIPEdit::ExistError, this, [this](bool bExist) { mapButton.value(KeyAccept)->setEnabled(!bExist); });
}

QList<quint32> CAddProcessorDlg::GetForbiddenIPs() const
{
    QList<quint32> listIP = GetTakenIPs();
    listIP.append(g_pPrcBasicControl->GetLocalAddress().nIP);
    return listIP;
}

quint32 CAddProcessorDlg::GetFreeIP() const
{
    const QList<quint32> listTaken = GetTakenIPs();
    return CAddressScan::FindFree(QSet<quint32>(listTaken.cbegin(), listTaken.cend()));
}
