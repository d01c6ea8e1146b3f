#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QList>
#include <QScopedPointer>
#include <QWidget>

/// A field for an IPv4 address: four numbers of 0 to 255 with dots between them. Addresses are in host
/// order, the form of QHostAddress(quint32). A new, empty edit is in error without having
/// emitted that. The state shows as the property "Error", a mark at the right end and a tool tip that says why.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CIPEdit : public QWidget
{
    Q_OBJECT

public:
    explicit CIPEdit(QWidget* parent);
    ~CIPEdit() override;

    /// Shows the address nIP, host order.
    void SetAddress(quint32 nIP);

    /// Stores the address in nIP; an empty place counts as 0. False when a place is empty.
    bool GetAddress(quint32& nIP) const;

    /// The addresses that may not be taken.
    void SetLimitIP(const QList<quint32>& listIP);

signals:
    /// The address has come into (true) or has left (false) the state in which it cannot be taken,
    /// being forbidden or incomplete. Emitted when that state changes, and with true again when the user
    /// goes from one such address to another.
    void ExistError(bool bExist);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class CPrivate;
    QScopedPointer<CPrivate> d;
};
