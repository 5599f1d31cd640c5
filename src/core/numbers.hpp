// Conversion of numbers in the plain core.
#pragma once
#include <climits>
#include <cstdint>

namespace zv {

// Towards zero. What no int can hold saturates, and NaN gives 0: a wild number must not be undefined behaviour.
inline int truncate(double v) {
    if (v >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (v <= static_cast<double>(INT_MIN)) return INT_MIN;
    return v == v ? static_cast<int>(v) : 0;
}

// The same in 64 bits; what is beyond any picture becomes far enough, and sums of it still fit.
inline int64_t truncateFar(double v) {
    constexpr double far = int64_t{1} << 52;
    return v >= far ? int64_t{1} << 52 : v <= -far ? -(int64_t{1} << 52) : v == v ? static_cast<int64_t>(v) : 0;
}

}  // namespace zv
