#pragma once

#include "Tessarine/base/FatalError.h"

#include <concepts>

namespace tessarine {

// a + b. An overflow of an integer stops the program.
template <class Value>
Value checkedSum(Value a, Value b) {
    if constexpr (std::integral<Value>) {
        Value sum{};
        if (__builtin_add_overflow(a, b, &sum)) fatalError("A total overflows.");
        return sum;
    } else {
        return a + b;
    }
}

} // namespace tessarine
