#pragma once

#include "interfaces/control/IPreferenceControl.h"

class CHostState;
class CMessageDispatcher;

/// The object behind g_pPreferenceControl.
class CPreferenceControl final : public IPreferenceControl
{
public:
    CPreferenceControl(CMessageDispatcher& dispatcherIn, const CHostState& hostIn);
    virtual ~CPreferenceControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    bool IsChiefMode() override;

private:
    CMessageDispatcher& dispatcher;
    const CHostState& host;
};
