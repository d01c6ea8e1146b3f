#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QIcon>
#include <QToolButton>

/// A flat button that is its icon. Takes its accessible name from its tool tip where none is set.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CIconButton : public QToolButton
{
    Q_OBJECT

public:
    explicit CIconButton(QWidget* parent);
    ~CIconButton() override;

    /// Adds one form of the icon, from an image file or resource. An empty path adds nothing.
    void AddIcon(const QString& strPath, QIcon::Mode mode, QIcon::State state);

    /// Both edges of the icon in pixels, as QAbstractButton::setIconSize(QSize).
    void setIconSize(int nWidth, int nHeight);
    using QToolButton::setIconSize;

protected:
    bool event(QEvent* event) override;

private:
    void TakeNameFromToolTip();

    QString strTakenName; ///< the accessible name that came from the tool tip; another one is the user's
};
