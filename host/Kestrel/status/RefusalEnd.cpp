#include "Kestrel/status/RefusalEnd.h"

#include "controlhost/IControlHost.h"

namespace {

bool HasReasonGone(EnRefusalReason reason, const IControlHost& host)
{
    switch (reason) {
    case ReasonListLocked:
        return !host.IsListLocked();
    case ReasonRefreshBlocked: // by either
        return !host.IsListLocked() && !host.IsRefreshBlocked();
    case ReasonBusy:
        return !host.IsBusy() && host.GetRunningJobs().isEmpty();
    default:
        return false;
    }
}

bool IsDoneSince(EnListCommand command, const IControlHost& host)
{
    switch (command) {
    case CommandScan:
        return host.GetRunningJobs().contains(QStringLiteral("Scanning the network"));
    case CommandSave:
        return host.GetListTrouble().isEmpty();
    default:
        return false;
    }
}

} // namespace

bool RefusalEnd::IsOver(const SRefusal& refusal, const IControlHost& host)
{
    return HasReasonGone(refusal.reason, host) || IsDoneSince(refusal.command, host);
}
