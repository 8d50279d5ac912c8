#pragma once

#include <cstdint>

namespace tessarine {

// A set of what a font can be beyond upright and regular: bit 0 bold, bit 1 italic.
struct FontTraits {
    std::int64_t rawValue = 0;

    static const FontTraits bold;
    static const FontTraits italic;

    constexpr bool isEmpty() const { return rawValue == 0; }

    constexpr bool contains(FontTraits traits) const {
        return (rawValue & traits.rawValue) == traits.rawValue;
    }

    friend constexpr FontTraits operator|(FontTraits a, FontTraits b) { return {a.rawValue | b.rawValue}; }

    friend bool operator==(const FontTraits&, const FontTraits&) = default;
};

inline constexpr FontTraits FontTraits::bold{1};
inline constexpr FontTraits FontTraits::italic{2};

} // namespace tessarine
