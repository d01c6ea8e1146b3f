#pragma once

#include "interfaces/host/IUIManagement.h"

/// A host that has a parent for the panel's window, and nothing else.
class CParentHost final : public IUIManagement
{
public:
    /// pParentIn stays its owner's.
    explicit CParentHost(QWidget* pParentIn) : pParent(pParentIn) { }

    QWidget* GetParentWidget() override
    {
        return pParent;
    }

private:
    QWidget* pParent;
};
