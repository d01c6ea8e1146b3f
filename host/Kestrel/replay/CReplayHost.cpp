#include "Kestrel/replay/CReplayHost.h"

bool CReplayHost::IsSteerable() const
{
    return true;
}

QString CReplayHost::SaveList()
{
    return fnReason();
}

void CReplayHost::StartLife() { }

void CReplayHost::SetSaveReason(const std::function<QString()>& fnReasonIn)
{
    fnReason = fnReasonIn;
}
