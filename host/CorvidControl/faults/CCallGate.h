#pragma once

#include "CorvidControl/list/SFault.h"
#include "controlhost/EnListCommand.h"

#include <optional>

class CCallFaults;

/// What each call on one control object goes through before it is carried out: the place where the faults of calls show. Any
/// thread.
class CCallGate
{
public:
    /// szObjectIn is a literal, as the journal names the object. faultsIn must outlive the gate.
    CCallGate(CCallFaults& faultsIn, const char* szObjectIn) : faults(faultsIn), szObject(szObjectIn) { }

    /// Holds the call as long as it is to be held, and throws where it is to throw. szOperation is a literal.
    void Enter(const char* szOperation) const;

    /// True when this command of the user is to be refused, which the caller reports with GetRefusal.
    bool IsRefused(EnListCommand command) const;

    /// Why it is: the library cannot do it.
    static SFault GetRefusal();

    /// Below: as CCallFaults.
    /// @{
    bool IsSelectionRefused() const;
    std::optional<int> TakeImportCode() const;
    std::optional<int> TakeExportCode() const;
    /// @}

private:
    CCallFaults& faults;
    const char* szObject;
};
