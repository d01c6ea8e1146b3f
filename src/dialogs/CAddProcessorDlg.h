#pragma once

#include "interfaces/widgets/CBaseDialog.h"

#include <QHostAddress>

class CIPEdit;
class QLabel;

/// Asks for the address of the processor to add. Proposes the first free address and accepts none that is
/// reserved, in use or this machine's own. Adds nothing itself: after exec() has returned
/// QDialog::Accepted the caller reads GetIP().
///
/// This machine's own address is refused once it has been typed, but by the contract with the host it may be
/// the one proposed, and is then accepted.
class CAddProcessorDlg : public CBaseDialog
{
    Q_OBJECT

public:
    /// Asks the control library which addresses are taken, and waits for its answers.
    explicit CAddProcessorDlg(QWidget* parent);

    /// The address in the field.
    QHostAddress GetIP() const;

private:
    void InitWidget();
    void InitLayout();
    void SetConnection();
    QList<quint32> GetForbiddenIPs() const;
    quint32 GetFreeIP() const;

    QLabel* pLabelIP = nullptr;
    CIPEdit* pEditIP = nullptr;
};
