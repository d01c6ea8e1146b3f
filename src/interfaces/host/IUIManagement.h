#pragma once

class QWidget;

/// What a host offers to the panels that it loads. The panel uses it once, while it is created, and
/// keeps no pointer to it.
///
/// @since 0.1
class IUIManagement
{
public:
    /// The widget that becomes the parent of the panel; never null. The panel copies its style
    /// sheet. GUI thread; the host keeps owning the widget.
    virtual QWidget* GetParentWidget() = 0;

protected:
    ~IUIManagement() = default;
};
