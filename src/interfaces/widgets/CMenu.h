#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QMenu>
#include <QPointer>

/// A menu in the look of the host.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CMenu : public QMenu
{
    Q_OBJECT

public:
    explicit CMenu(QWidget* parent);
    ~CMenu() override;

    /// Minimum width of the menu in pixels. Hides QWidget's operation of the same name, and also keeps the
    /// entries' frame within it.
    void setMinimumWidth(int nWidth);

    /// Names the widget that opens this menu: it gets the property "MenuOpen" = true while the menu is
    /// shown, for the style sheet, and is not owned.
    void SetControlWidget(QWidget* pWidget);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void SetControlWidgetOpen(bool bOpen);

    QPointer<QWidget> pControlWidget;
};
