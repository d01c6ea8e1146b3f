#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QDialog>
#include <QMap>
#include <QScopedPointer>

class QBoxLayout;
class QPushButton;

/// A modal dialog with the host's title bar (which drags the window and closes it by its cross), a
/// layout for the contents and a row of buttons. Escape and the cross reject it.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CBaseDialog : public QDialog
{
    Q_OBJECT

public:
    /// Which buttons the dialog has.
    enum EnButton
    {
        ButtonsNone = 0,     ///< no row of buttons
        ButtonsOkCancel = 1, ///< KeyAccept, which is the default button, and KeyReject
        ButtonsOk = 2,       ///< KeyAccept only
    };
    Q_ENUM(EnButton)

    /// The keys of the buttons in mapButton.
    enum EnButtonKey
    {
        KeyAccept = 1,
        KeyReject = 2,
    };
    Q_ENUM(EnButtonKey)

    /// bStayOnTop keeps the dialog above all windows, not only above its parent.
    CBaseDialog(QWidget* parent, const QString& strTitle, bool bStayOnTop, EnButton buttons);
    ~CBaseDialog() override;

    /// False fixes the size to that of the contents; an edge that is fixed already, as by setFixedWidth,
    /// keeps its length.
    void SetCanResize(bool bCanResize);

    /// Dims the parent's window while the dialog is open.
    void SetTransparentMask();

    /// Fades the dialog in when it is shown.
    void SetTransitionAnimate();

    void setVisible(bool bVisible) override;

protected:
    bool event(QEvent* event) override;

    /// The layout that takes the contents, vertical, between the title bar and the buttons. Owned by
    /// the dialog.
    QBoxLayout* GetContentLayout() const;

    /// The buttons by EnButtonKey. Owned by the dialog.
    QMap<int, QPushButton*> mapButton;

private:
    class CPrivate;
    QScopedPointer<CPrivate> d;
};
