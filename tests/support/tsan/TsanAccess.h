#pragma once

#include <cstddef>

namespace TsanQt {

/// Whether the code at this address, a call's place of return, belongs to the project. What Qt's other libraries do to
/// containers of their own is ordered by locks that nobody sees.
bool IsOurs(const void* pCode);

/// Tells the sanitizer that the caller reads or writes these bytes, which Qt does in its place.
void Read(const void* pBytes, std::size_t nSize);
void Write(const void* pBytes, std::size_t nSize);

} // namespace TsanQt

/// The place to which a function of the bridge returns.
#define PTV_CALLER __builtin_return_address(0)
