#pragma once

#include "interfaces/widgets/CBaseDialog.h"
#include "interfaces/widgets/CMessageBox.h"

#include <QStyle>

class QLabel;

/// The dialog behind CMessageBox. Its buttons are in mapButton by their StandardButton.
class CMessageDialog : public CBaseDialog
{
    Q_OBJECT

public:
    /// Without any button it has OK. defaultButton has the focus and is pressed by Return; the first of buttons where
    /// it is none of them.
    CMessageDialog(QWidget* parent, const QString& strTitle, const QString& strText, CMessageBox::StandardButtons buttons,
                   CMessageBox::StandardButton defaultButton);

    /// The picture of the file, or the style's own where there is no such file.
    void SetIcon(const QString& strPath, QStyle::StandardPixmap fallback);

    /// What the user pressed; what closing the box counts as, while nothing was pressed.
    CMessageBox::StandardButton GetAnswer() const;

private:
    void InitContents(const QString& strText);
    void InitButtons(CMessageBox::StandardButtons buttons, CMessageBox::StandardButton defaultButton);
    void AddButton(QBoxLayout* pRow, CMessageBox::StandardButton button, const QString& strName, const QString& strText);

    QLabel* pIcon = nullptr;
    CMessageBox::StandardButton answer = CMessageBox::ButtonNone;
};
