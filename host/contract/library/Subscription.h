#pragma once

class CLibrary;
class CObserver;

/// The seven objects with observers, in the order of the panel.
namespace Subscription {

void Attach(const CLibrary& library, CObserver* pObserver);
void Detach(const CLibrary& library, CObserver* pObserver); ///< from one after the other

} // namespace Subscription
