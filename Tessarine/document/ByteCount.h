#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessarine {

// A count of bytes of the UTF-16 form of text: two a code unit. Overflow stops the program.
class ByteCount {
public:
    constexpr ByteCount() = default;

    constexpr ByteCount(std::int64_t value) // NOLINT(google-explicit-constructor): a literal is a count
        : m_value(value) {}

    // The bytes of so many code units, or of a text.
    static ByteCount ofCodeUnits(std::int64_t count) { return ByteCount(count) * 2; }

    static ByteCount of(std::u16string_view text) {
        return ofCodeUnits(static_cast<std::int64_t>(text.size()));
    }

    constexpr std::int64_t value() const { return m_value; }

    friend ByteCount operator+(ByteCount a, ByteCount b);
    friend ByteCount operator-(ByteCount a, ByteCount b);
    friend ByteCount operator*(ByteCount a, ByteCount b);

    ByteCount& operator+=(ByteCount other) { return *this = *this + other; }

    ByteCount& operator-=(ByteCount other) { return *this = *this - other; }

    ByteCount magnitude() const;

    friend constexpr auto operator<=>(ByteCount, ByteCount) = default;

    // The decimal number.
    std::string description() const { return std::to_string(m_value); }

private:
    std::int64_t m_value = 0;
};

} // namespace tessarine
