#pragma once

#include <string_view>

/// Which fault a variant has. Each variant's library defines it for itself.
namespace VariantName {

std::string_view Get();

} // namespace VariantName
