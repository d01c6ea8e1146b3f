#pragma once

#include "interfaces/widgets/CBaseDialog.h"

#include <QIcon>

/// A dialog that offers a few ways to go on, one large button per way, and below them a button that
/// cancels. Cancel has the focus whenever the dialog opens; Tab and the arrows go from there to the
/// options and round. exec() returns the 1-based number of the option that was chosen, in the order of
/// AddOption, and 0 for none.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CCommonOptionDlg : public CBaseDialog
{
    Q_OBJECT

public:
    CCommonOptionDlg(QWidget* parent, const QString& strTitle);
    ~CCommonOptionDlg() override;

    /// Adds an option; its button is in mapButton by its number, Cancel by 0. Assistive programs read it
    /// by its text, without the mnemonic. False, and nothing is added, for an empty text.
    bool AddOption(const QIcon& icon, const QString& strText);

private:
    void AddCancel();
};
