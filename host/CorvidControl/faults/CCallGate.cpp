#include "CorvidControl/faults/CCallGate.h"

#include "CorvidControl/faults/CCallFaults.h"

#include <stdexcept>

namespace {

/// No std::exception.
struct SOtherThrown
{
};

} // namespace

void CCallGate::Enter(const char* szOperation) const
{
    if (!faults.IsAny()) {
        return;
    }
    const QString strCall = QLatin1String(szObject) + QLatin1Char('.') + QLatin1String(szOperation);
    faults.Hold(strCall);
    const EnThrown thrown = faults.TakeThrow(strCall);
    if (thrown == ThrownError) {
        throw std::runtime_error(strCall.toStdString() + " was to fail");
    }
    if (thrown == ThrownOther) {
        throw SOtherThrown();
    }
}

bool CCallGate::IsRefused(EnListCommand command) const
{
    return faults.IsAny() && faults.TakeRefusal(command);
}

SFault CCallGate::GetRefusal()
{
    return { ReasonNotSupported, {} };
}

bool CCallGate::IsSelectionRefused() const
{
    return faults.IsAny() && faults.TakeSelectionRefusal();
}

std::optional<int> CCallGate::TakeImportCode() const
{
    return faults.IsAny() ? faults.TakeImportCode() : std::nullopt;
}

std::optional<int> CCallGate::TakeExportCode() const
{
    return faults.IsAny() ? faults.TakeExportCode() : std::nullopt;
}
