#pragma once

/// True while nothing may be deleted: the list is locked, or a processor of the selection, as the
/// control library reports it, is active and in use.
bool IsDeleteBlocked();
