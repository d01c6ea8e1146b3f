#pragma once

struct SStoreReading;

/// The reading behind each refresh of the store.
namespace StoreReader {

/// Asks the control library for everything but the current pane, always in the same order. Holds no lock. May
/// take as long as the library takes, so not for the GUI thread of the panel.
SStoreReading Take();

} // namespace StoreReader
