#pragma once

#include "Tessarine/document/UnitConversion.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace tessarine {

// A stretch of text that lies in one piece in memory, at `location` of its text: one byte a code unit where
// all of its chunk is below U+0100, two otherwise. It borrows: a run of a snapshot is valid as long as the
// snapshot, a run of a store until the next change.
class TextRun {
public:
    TextRun() = default;

    TextRun(std::int64_t location, std::span<const std::uint8_t> units)
        : m_location(location)
        , m_size(units.size())
        , m_narrow(units.data()) {}

    TextRun(std::int64_t location, std::span<const char16_t> units)
        : m_location(location)
        , m_size(units.size())
        , m_wide(units.data()) {}

    std::int64_t location() const { return m_location; }

    std::int64_t limit() const { return m_location + size(); }

    std::int64_t size() const { return static_cast<std::int64_t>(m_size); }

    bool isWide() const { return m_wide != nullptr; }

    // Null where the units are narrow.
    const char16_t* wideUnits() const { return m_wide; }

    bool contains(std::int64_t location) const {
        return static_cast<std::uint64_t>(location - m_location) < m_size;
    }

    // Requires contains(location).
    char16_t at(std::int64_t location) const {
        const std::int64_t index = location - m_location;
        return m_wide ? m_wide[index] : m_narrow[index];
    }

    // Calls the body with a span of std::uint8_t or of char16_t.
    template <typename Body>
    decltype(auto) visit(Body&& body) const {
        return m_wide ? std::forward<Body>(body)(std::span(m_wide, m_size))
                      : std::forward<Body>(body)(std::span(m_narrow, m_size));
    }

    // The part of it that lies in [location, limit).
    TextRun clipped(std::int64_t location, std::int64_t limit) const;

    void copyTo(char16_t* destination) const {
        visit([destination](auto units) { copyUnits(units, destination); });
    }

private:
    std::int64_t m_location = 0;
    std::size_t m_size = 0;
    const std::uint8_t* m_narrow = nullptr;
    const char16_t* m_wide = nullptr;
};

} // namespace tessarine
