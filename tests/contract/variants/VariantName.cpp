#include "variants/VariantName.h"

std::string_view VariantName::Get()
{
    return VARIANT;
}
