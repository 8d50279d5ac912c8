#include "Tessarine/document/Utf8Decoder.h"

#include "Tessarine/document/UnitConversion.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tessarine {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr char32_t replacement = 0xFFFD;
constexpr std::size_t stretchUnits = 1024;
constexpr int worthwhileAscii = 16; // so many ASCII bytes in a row go the straight way

// What a lead byte promises. The second byte's bounds keep out overlong forms, surrogates and what lies above
// U+10FFFF; later ones are 80..BF always.
struct Lead {
    std::size_t length = 0; // of the whole sequence; 0 for a byte that leads none
    std::uint8_t least = 0x80;
    std::uint8_t most = 0xBF;
    std::uint8_t payload = 0;
};

Lead leadOf(std::uint8_t byte) {
    const auto payload = [byte](int mask) { return static_cast<std::uint8_t>(byte & mask); };
    if (byte < 0xC2 || byte > 0xF4) return {};
    if (byte < 0xE0) return {2, 0x80, 0xBF, payload(0x1F)};
    if (byte == 0xE0) return {3, 0xA0, 0xBF, payload(0x0F)};
    if (byte == 0xED) return {3, 0x80, 0x9F, payload(0x0F)};
    if (byte < 0xF0) return {3, 0x80, 0xBF, payload(0x0F)};
    if (byte == 0xF0) return {4, 0x90, 0xBF, payload(0x07)};
    if (byte == 0xF4) return {4, 0x80, 0x8F, payload(0x07)};
    return {4, 0x80, 0xBF, payload(0x07)};
}

struct Sequence {
    char32_t codePoint;
    std::size_t length; // bytes that it takes, at least 1
    bool isMalformed = false;
};

// The sequence at the start of `bytes`, which is not ASCII; of a malformed one, its maximal part.
Sequence sequenceAt(Bytes bytes) {
    Lead lead = leadOf(bytes[0]);
    if (lead.length == 0) return {replacement, 1, true};
    char32_t codePoint = lead.payload;
    for (std::size_t i = 1; i < lead.length; ++i) {
        if (i == bytes.size() || bytes[i] < lead.least || bytes[i] > lead.most) return {replacement, i, true};
        codePoint = codePoint << 6 | (bytes[i] & 0x3F);
        lead.least = 0x80;
        lead.most = 0xBF;
    }
    return {codePoint, lead.length};
}

// Decodes bytes that are not all ASCII, until a longer run of ASCII or until the buffer is full.
class Stretch {
public:
    // The bytes that were used.
    std::size_t decode(Bytes bytes) {
        std::size_t at = 0;
        int asciiRun = 0;
        m_size = 0;
        while (at < bytes.size() && m_size + 2 <= stretchUnits && asciiRun < worthwhileAscii) {
            if (bytes[at] < 0x80) {
                m_units[m_size++] = bytes[at++];
                ++asciiRun;
                continue;
            }
            asciiRun = 0;
            const Sequence sequence = sequenceAt(bytes.subspan(at));
            append(sequence.codePoint);
            m_hasReplacements |= sequence.isMalformed;
            at += sequence.length;
        }
        return at;
    }

    std::u16string_view units() const { return {m_units.data(), m_size}; }

    bool hasReplacements() const { return m_hasReplacements; }

private:
    void append(char32_t codePoint) {
        if (codePoint >= 0x10000) {
            m_units[m_size++] = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
            codePoint = 0xDC00 | (codePoint & 0x3FF);
        }
        m_units[m_size++] = static_cast<char16_t>(codePoint);
    }

    std::array<char16_t, stretchUnits> m_units;
    std::size_t m_size = 0;
    bool m_hasReplacements = false;
};

} // namespace

bool decodeUtf8(std::span<const std::uint8_t> bytes, TextStoreBuilder& builder) {
    Stretch stretch;
    while (!bytes.empty()) {
        const std::size_t ascii = asciiPrefix(bytes);
        builder.appendLatin1(bytes.first(ascii));
        bytes = bytes.subspan(ascii);
        bytes = bytes.subspan(stretch.decode(bytes));
        builder.append(stretch.units());
    }
    return stretch.hasReplacements();
}

} // namespace tessarine
