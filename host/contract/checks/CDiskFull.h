#pragma once

#include <sys/resource.h>

/// While it lives no file of this process grows: each write fails as on a disk that is full.
class CDiskFull
{
public:
    CDiskFull();
    ~CDiskFull();

    CDiskFull(const CDiskFull&) = delete;
    CDiskFull& operator=(const CDiskFull&) = delete;

private:
    rlimit before{};
};
