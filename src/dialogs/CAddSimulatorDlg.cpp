#include "dialogs/CAddSimulatorDlg.h"

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/SSimulatorRequest.h"
#include "interfaces/widgets/CComboBox.h"
#include "interfaces/widgets/CDoubleSpinBox.h"
#include "interfaces/widgets/CMenu.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int nDialogWidth = 248;
constexpr int nDialogMargin = 16;
constexpr int nGridRowSpacing = 8;
constexpr int nGridColumnSpacing = 10;
constexpr int nOutputSpacing = 12;
constexpr int nOutputLabelSpacing = 8;

constexpr int nDefaultType = 12;

enum EnLabel
{
    LabelType = 0,
    LabelCount = 1,
    LabelOutput = 2,
};
constexpr int nLabels = 3;

enum EnOutput
{
    Output1G = 1,
    Output5G = 2,
    Output10G = 3,
};

/// These types have one output only, the 1G port. None of them is on offer so far.
bool HasFixedOutput(int nType)
{
    return nType == 41 || nType == 22;
}

} // namespace

CAddSimulatorDlg::CAddSimulatorDlg(QWidget* parent) : CBaseDialog(parent, tr("Add simulators"), false, ButtonsOkCancel)
{
    listType.append(nDefaultType);
    setFixedWidth(nDialogWidth);
    SetCanResize(false);
    SetTransparentMask();
    SetTransitionAnimate();
    InitWidget();
    InitLayout();
    UpdateText();
}

int CAddSimulatorDlg::GetCount() const
{
    return int(pSpinCount->value());
}

int CAddSimulatorDlg::GetType() const
{
    return pComboType->GetCurSelData().toInt();
}

int CAddSimulatorDlg::GetOutput() const
{
    return pComboOutput->GetCurSelData().toInt();
}

void CAddSimulatorDlg::InitWidget()
{
    for (int nIndex = 0; nIndex < nLabels; ++nIndex) {
        mapLabel.insert(nIndex, new QLabel(GetLabelText(nIndex), this));
    }
    pComboType = new CComboBox(this);
    pSpinCount = new CDoubleSpinBox(this);
    pComboOutput = new CComboBox(this);
    // What a screen reader calls the fields.
    mapLabel.value(LabelType)->setBuddy(pComboType);
    mapLabel.value(LabelCount)->setBuddy(pSpinCount);
    mapLabel.value(LabelOutput)->setBuddy(pComboOutput);

    pSpinCount->setDecimals(0);
    pSpinCount->setRange(1.0, double(nMaxSimulators - g_pPrcListControl->GetSimulatorCount()));
    pSpinCount->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    InitTypeMenu();
    // After the first selection, which must change nothing.
    SetConnection();
    InitOutputMenu();
}

void CAddSimulatorDlg::InitTypeMenu()
{
    auto* pMenu = new CMenu(this);
    pMenu->setWindowFlag(Qt::NoDropShadowWindowHint, true);
    for (int nType : std::as_const(listType)) {
        AddEntry(pMenu, g_pPrcBasicControl->GetTypeName(nType), nType);
    }
    pComboType->SetMenu(pMenu, true);
    pComboType->SetCurrentByID(nDefaultType, false);
}

void CAddSimulatorDlg::InitOutputMenu()
{
    auto* pMenu = new CMenu(this);
    for (int nOutput : { Output1G, Output5G, Output10G }) {
        AddEntry(pMenu, GetOutputText(nOutput), nOutput);
    }
    pComboOutput->SetMenu(pMenu, true);
    pComboOutput->SetCurrentByID(Output10G, false);
    pComboOutput->SetActionVisible(Output1G, false);
}

void CAddSimulatorDlg::InitLayout()
{
    QBoxLayout* pContent = GetContentLayout();
    pContent->setContentsMargins(nDialogMargin, nDialogMargin, nDialogMargin, nDialogMargin);
    auto* pGrid = new QGridLayout;
    pGrid->setContentsMargins(0, 0, 0, 0);
    pGrid->setVerticalSpacing(nGridRowSpacing);
    pGrid->setHorizontalSpacing(nGridColumnSpacing);
    pGrid->addWidget(mapLabel.value(LabelType), 0, 0);
    pGrid->addWidget(mapLabel.value(LabelCount), 0, 1);
    pGrid->addWidget(pComboType, 1, 0);
    pGrid->addWidget(pSpinCount, 1, 1);
    pContent->addLayout(pGrid);
    pContent->addSpacing(nOutputSpacing);
    pContent->addWidget(mapLabel.value(LabelOutput));
    pContent->addSpacing(nOutputLabelSpacing);
    pContent->addWidget(pComboOutput);
}

void CAddSimulatorDlg::SetConnection()
{
    connect(pComboType, &CComboBox::SelectChanged, this, &CAddSimulatorDlg::DealTypeChanged);
}

void CAddSimulatorDlg::UpdateText()
{
    for (int nIndex = 0; nIndex < nLabels; ++nIndex) {
        mapLabel.value(nIndex)->setText(GetLabelText(nIndex));
    }
}

void CAddSimulatorDlg::DealTypeChanged()
{
    if (HasFixedOutput(GetType())) {
        pComboOutput->SetActionVisible(Output1G, true);
        pComboOutput->SetCurrentByID(Output1G, false);
        pComboOutput->setEnabled(false);
        return;
    }
    pComboOutput->SetActionVisible(Output1G, false);
    if (GetOutput() == Output1G) {
        pComboOutput->SetCurrentByID(Output10G, false);
    }
    pComboOutput->setEnabled(true);
}

void CAddSimulatorDlg::AddEntry(CMenu* pMenu, const QString& strText, int nData)
{
    auto* pAction = new QAction(this);
    pAction->setText(strText);
    pAction->setData(nData);
    pMenu->addAction(pAction);
}

QString CAddSimulatorDlg::GetLabelText(int nIndex) const
{
    switch (nIndex) {
    case LabelType:
        return tr("Type");
    case LabelCount:
        return tr("Count");
    case LabelOutput:
        return tr("Output");
    default:
        return QString();
    }
}

QString CAddSimulatorDlg::GetOutputText(int nOutput) const
{
    switch (nOutput) {
    case Output1G:
        return tr("1G port");
    case Output5G:
        return tr("5G port");
    case Output10G:
        return tr("10G fiber");
    default:
        return QString();
    }
}
