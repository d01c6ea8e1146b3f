#pragma once

#include "interfaces/widgets/CBaseDialog.h"

#include <QHostAddress>

class CIPEdit;
class QLabel;

/// Asks for the address of a processor that is to be added. Proposes the first address that is free and
/// lets none be accepted that is reserved, in use or this machine's own. Adds nothing itself: after
/// exec() has returned QDialog::Accepted the caller reads GetIP().
///
/// This machine's own address is refused once it has been typed, but it may be the one proposed, and is
/// then accepted: on purpose.
class CAddProcessorDlg : public CBaseDialog
{
    Q_OBJECT

public:
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
