// Conversion of numbers in the plain core.
#pragma once
#include <climits>

namespace zv {

// Towards zero. What no int can hold saturates, and NaN gives 0: a wild number must not be undefined behaviour.
inline int truncate(double v) {
    if (v >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (v <= static_cast<double>(INT_MIN)) return INT_MIN;
    return v == v ? static_cast<int>(v) : 0;
}

}  // namespace zv
