#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// How well one colour is seen on another.
namespace Contrast {

inline double GetLuminance(const QColor& colour)
{
    const auto Linear = [](double dPart) { return dPart <= 0.03928 ? dPart / 12.92 : std::pow((dPart + 0.055) / 1.055, 2.4); };
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

/// The contrast of two colours, 1 to 21, as the rules for readable web pages define it.
inline double Get(const QColor& a, const QColor& b)
{
    const double dA = GetLuminance(a) + 0.05;
    const double dB = GetLuminance(b) + 0.05;
    return std::max(dA, dB) / std::min(dA, dB);
}

} // namespace Contrast
