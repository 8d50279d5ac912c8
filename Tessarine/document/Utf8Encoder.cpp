#include "Tessarine/document/Utf8Encoder.h"

#include "Tessarine/document/UnitConversion.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace tessarine {

std::span<const std::uint8_t> Utf8Encoder::encode(const TextRun& run) {
    m_bytes.clear();
    run.visit([this](auto units) {
        m_bytes.reserve(units.size() * 3 + 3); // the most that so many units and a pending lead can take
        encodeUnits(units);
    });
    return m_bytes;
}

void Utf8Encoder::encodeUnits(std::span<const std::uint8_t> units) {
    replacePendingLead();
    while (!units.empty()) {
        const auto ascii = units.first(asciiPrefix(units));
        m_bytes.insert(m_bytes.end(), ascii.begin(), ascii.end());
        units = units.subspan(ascii.size());
        if (units.empty()) return;
        append(units.front());
        units = units.subspan(1);
    }
}

void Utf8Encoder::encodeUnits(std::span<const char16_t> units) {
    for (const char16_t unit : units)
        encodeUnit(unit);
}

std::span<const std::uint8_t> Utf8Encoder::finish() {
    m_bytes.clear();
    replacePendingLead();
    return m_bytes;
}

void Utf8Encoder::encodeUnit(char16_t unit) {
    if (m_pendingLead != 0 && U16_IS_TRAIL(unit)) {
        append(static_cast<char32_t>(U16_GET_SUPPLEMENTARY(m_pendingLead, unit)));
        m_pendingLead = 0;
        return;
    }
    replacePendingLead();
    if (U16_IS_LEAD(unit)) {
        m_pendingLead = unit;
    } else {
        m_hasReplacements |= U16_IS_TRAIL(unit);
        append(U16_IS_TRAIL(unit) ? u'\uFFFD' : unit);
    }
}

void Utf8Encoder::replacePendingLead() {
    if (m_pendingLead == 0) return;
    m_pendingLead = 0;
    m_hasReplacements = true;
    append(u'\uFFFD');
}

void Utf8Encoder::append(char32_t codePoint) {
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes, size, codePoint);
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
}

} // namespace tessarine
