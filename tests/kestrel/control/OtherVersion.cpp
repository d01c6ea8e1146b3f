#include "controlhost/IControlHost.h"

// Offers a host, but to an application of another version.
IControlHost* CorvidControl_CreateHost(const SControlOptions&)
{
    return nullptr;
}
