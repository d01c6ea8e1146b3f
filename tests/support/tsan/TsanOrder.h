#pragma once

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace TsanQt {

/// The library's own function behind one that this folder defines.
template <class Fn> Fn Original(const char* pSymbol)
{
    return reinterpret_cast<Fn>(dlsym(RTLD_NEXT, pSymbol));
}

/// What the caller did so far comes before what follows the next TakeIn of the same object.
inline void PutIn(const void* pObject)
{
    __tsan_release(const_cast<void*>(pObject));
}

inline void TakeIn(const void* pObject)
{
    __tsan_acquire(const_cast<void*>(pObject));
}

/// The same for the way back.
inline void PutOut(const void* pObject)
{
    __tsan_release(static_cast<char*>(const_cast<void*>(pObject)) + 1);
}

inline void TakeOut(const void* pObject)
{
    __tsan_acquire(static_cast<char*>(const_cast<void*>(pObject)) + 1);
}

} // namespace TsanQt
