#pragma once

#include "CPrcBasicControlStub.h"

#include <stdexcept>

/// While it lives, a scan of the network breaks off.
class CFailingScan final : public CPrcBasicControlStub
{
public:
    void RefreshProcessors() override
    {
        throw std::runtime_error("the network is gone");
    }
};
