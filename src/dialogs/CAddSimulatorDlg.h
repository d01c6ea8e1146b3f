#pragma once

#include "interfaces/widgets/CBaseDialog.h"

class CComboBox;
class CDoubleSpinBox;
class CMenu;
class QLabel;

/// Asks which type of simulated processor to add, how many, and with which output. Adds nothing itself:
/// after exec() has returned QDialog::Accepted the caller reads the three values.
class CAddSimulatorDlg : public CBaseDialog
{
    Q_OBJECT

public:
    /// Asks the control library for the names of the types and for how many simulators there are.
    explicit CAddSimulatorDlg(QWidget* parent);

    /// How many to add: 1 or more, together with those present never more than nMaxSimulators.
    int GetCount() const;

    /// The processor type, in the numbering of IPrcBasicControl::GetTypeName.
    int GetType() const;

    /// 1 "1G port", 2 "5G port", 3 "10G fiber".
    int GetOutput() const;

private:
    void InitWidget();
    void InitTypeMenu();
    void InitOutputMenu();
    void InitLayout();
    void SetConnection();
    void UpdateText();
    void DealTypeChanged();
    void AddEntry(CMenu* pMenu, const QString& strText, int nData);
    QString GetLabelText(int nIndex) const;
    QString GetOutputText(int nOutput) const;

    QMap<int, QLabel*> mapLabel; ///< 0 type, 1 count, 2 output
    CComboBox* pComboType = nullptr;
    CDoubleSpinBox* pSpinCount = nullptr;
    CComboBox* pComboOutput = nullptr;
    QList<int> listType; ///< the types on offer
};
