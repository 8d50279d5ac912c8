#include "Tessarine/document/ByteCount.h"

#include "Tessarine/base/FatalError.h"

namespace tessarine {

namespace {

[[noreturn]] void overflow() {
    fatalError("A byte count overflows.");
}

} // namespace

ByteCount operator+(ByteCount a, ByteCount b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.m_value, b.m_value, &sum)) overflow();
    return sum;
}

ByteCount operator-(ByteCount a, ByteCount b) {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a.m_value, b.m_value, &difference)) overflow();
    return difference;
}

ByteCount operator*(ByteCount a, ByteCount b) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(a.m_value, b.m_value, &product)) overflow();
    return product;
}

ByteCount ByteCount::magnitude() const {
    return m_value < 0 ? ByteCount(0) - *this : *this;
}

} // namespace tessarine
