#pragma once

#include "double/CControlDouble.h"

#include <QWidget>

/// What a dialog opens over: a shown window, and the double of the control library behind it.
class CDialogHost
{
public:
    CDialogHost()
    {
        window.resize(320, 600);
        window.show();
    }

    CControlDouble control;
    QWidget window;
};
