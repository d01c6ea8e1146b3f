#pragma once

#include <QtPlugin>

class QWidget;

/// The panel as the host sees it: a widget that the host owns, places, refreshes and ends.
///
/// The order of the virtual operations is part of the contract, since the host calls them by slot:
/// complete destructor, deleting destructor, UpdateWidget, GetWidget, GetWidgetAlias1, GetWidgetAlias2,
/// GetDefaultFlag. Every operation is called on the GUI thread.
///
/// The host reaches the interface from the pointer that CProcessorTreeView_Init hands out, or from the
/// widget by qobject_cast<ICorvidWidget*>, whose name for it is "ICorvidWidget".
///
/// @since 0.1
class ICorvidWidget
{
public:
    /// Ends the panel: stops its worker, saves the list and destroys the widget with its children.
    /// Waits for a refresh of the data that is under way. The control objects must still exist, and
    /// no job that the panel started (refresh, add, import) may be running.
    virtual ~ICorvidWidget() = default;

    /// Shows the present snapshot on the screen. Does nothing while a refresh that the user asked
    /// for is running; its end makes up for it.
    virtual void UpdateWidget() = 0;

    /// The panel's widget, never null. Owned by the panel; the pointer is valid until the panel ends.
    virtual QWidget* GetWidget() = 0;

    /// The same widget again, for hosts that ask for it by another slot.
    virtual QWidget* GetWidgetAlias1() = 0;

    /// The same widget again, for hosts that ask for it by a third slot.
    virtual QWidget* GetWidgetAlias2() = 0;

    /// A constant of the interface: 1. Touches no data of the object.
    virtual int GetDefaultFlag()
    {
        return 1;
    }
};

Q_DECLARE_INTERFACE(ICorvidWidget, "ICorvidWidget")
