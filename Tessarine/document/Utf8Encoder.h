#pragma once

#include "Tessarine/document/TextRun.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tessarine {

// Turns the runs of a text, one after the other, into UTF-8. Surrogate pairs may lie across two runs; a lone
// surrogate becomes U+FFFD. The bytes given are valid until the next call.
class Utf8Encoder {
public:
    std::span<const std::uint8_t> encode(const TextRun& run);

    // What the end of the text leaves.
    std::span<const std::uint8_t> finish();

    bool hasReplacements() const { return m_hasReplacements; }

private:
    void encodeUnits(std::span<const std::uint8_t> units);
    void encodeUnits(std::span<const char16_t> units);
    void encodeUnit(char16_t unit);
    void replacePendingLead();
    void append(char32_t codePoint);

    std::vector<std::uint8_t> m_bytes;
    char16_t m_pendingLead = 0; // a lead surrogate whose trail has not come; 0 for none
    bool m_hasReplacements = false;
};

} // namespace tessarine
