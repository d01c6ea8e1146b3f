#pragma once

#include <functional>
#include <vector>

class CProcessorTreeData;

/// An operation of the store but Refresh, called so that it leaves the store as it was.
struct SStoreCall
{
    static std::vector<SStoreCall> All();

    const char* pName;
    std::function<void(CProcessorTreeData&)> fnCall;
};
