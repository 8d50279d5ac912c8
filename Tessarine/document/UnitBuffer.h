#pragma once

#include "Tessarine/document/UnitConversion.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>

namespace tessarine {

// A short run of code units of one width (std::uint8_t or char16_t) with a little room to grow. Sizes and
// positions are in units. The room stays near a thirtieth of the size, so that many buffers waste little
// memory, and typing reallocates only once in dozens of keystrokes.
template <typename Unit>
class UnitBuffer {
public:
    UnitBuffer() = default;

    // With room for `leastCapacity` units in all, kept until trim() or a removal.
    template <typename Source>
    explicit UnitBuffer(std::span<const Source> units, std::int32_t leastCapacity = 0)
        : m_size(static_cast<std::int32_t>(units.size()))
        , m_capacity(std::max(capacityFor(m_size), leastCapacity))
        , m_units(std::make_unique_for_overwrite<Unit[]>(m_capacity)) {
        copyUnits(units, m_units.get());
    }

    UnitBuffer(const UnitBuffer& other)
        : UnitBuffer(other.units()) {}

    UnitBuffer(UnitBuffer&&) noexcept = default;
    UnitBuffer& operator=(UnitBuffer&&) noexcept = default;
    UnitBuffer& operator=(const UnitBuffer&) = delete;
    ~UnitBuffer() = default;

    std::int32_t size() const { return m_size; }

    std::int32_t capacity() const { return m_capacity; }

    std::span<const Unit> units() const { return {m_units.get(), static_cast<std::size_t>(m_size)}; }

    Unit operator[](std::int32_t index) const { return m_units[index]; }

    // `units` must not lie in this buffer.
    template <typename Source>
    void replace(std::int32_t start, std::int32_t length, std::span<const Source> units) {
        const auto inserted = static_cast<std::int32_t>(units.size());
        const std::int32_t size = m_size - length + inserted;
        if (size > m_capacity) reallocate(capacityFor(size));
        const std::int32_t tail = m_size - start - length;
        std::memmove(&m_units[start + inserted], &m_units[start + length], tail * sizeof(Unit));
        copyUnits(units, &m_units[start]);
        m_size = size;
        if (inserted < length) trim();
    }

    // Gives back room that is much more than the size deserves.
    void trim() {
        if (m_capacity > greatestCapacity(m_size)) reallocate(capacityFor(m_size));
    }

    // The most room that trim() leaves a buffer of this size, and what it gets anew.
    static std::int32_t greatestCapacity(std::int32_t size) { return size + size / 8 + 64; }

    static std::int32_t capacityFor(std::int32_t size) { return size + size / 32 + 32; }

private:
    void reallocate(std::int32_t capacity) {
        auto units = std::make_unique_for_overwrite<Unit[]>(capacity);
        if (m_size > 0) std::memcpy(units.get(), m_units.get(), m_size * sizeof(Unit));
        m_units = std::move(units);
        m_capacity = capacity;
    }

    std::int32_t m_size = 0;
    std::int32_t m_capacity = 0;
    std::unique_ptr<Unit[]> m_units;
};

} // namespace tessarine
