// Takes bytes for a file: the first one says as which encoding it is read, the rest are its content. What
// comes of it is held to what ICU makes of UTF-8, and what is saved to what was loaded.

#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/TextEncoder.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unicode/unistr.h>

using namespace tessarine;

namespace {

constexpr TextStoreLimits small{16, 4};
constexpr std::array<std::optional<TextEncoding>, 5> encodings{
    std::nullopt, TextEncoding::utf8, TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian,
    TextEncoding::latin1};

void require(bool isRight, const char* fault) {
    if (isRight) return;
    std::fprintf(stderr, "%s\n", fault);
    std::abort();
}

std::u16string unitsOf(const TextStore& store) {
    return store.text().substring(0, store.length());
}

std::string bytesOf(const DecodedText& decoded) {
    std::string bytes;
    const auto encoded =
        encodeText(decoded.text.text(), decoded.format, [&bytes](std::span<const std::byte> part) {
            bytes.append(reinterpret_cast<const char*>(part.data()), part.size());
        });
    require(encoded.has_value() && !encoded->hasReplacements, "What was loaded cannot be saved.");
    return bytes;
}

std::u16string unitsByIcu(std::string_view utf8) {
    if (utf8.starts_with("\xEF\xBB\xBF")) utf8.remove_prefix(3);
    const auto text = icu::UnicodeString::fromUTF8({utf8.data(), static_cast<std::int32_t>(utf8.size())});
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto encoding = encodings[data[0] % encodings.size()];
    const std::string bytes(data + 1, data + size);
    const DecodedText decoded = decodeText(std::as_bytes(std::span(bytes)), encoding, small);
    decoded.text.check();
    const std::u16string units = unitsOf(decoded.text);
    if (decoded.format.encoding == TextEncoding::utf8)
        require(units == unitsByIcu(bytes), "The text is not that of ICU.");
    const std::string saved = bytesOf(decoded);
    require(decoded.hasReplacements || saved == bytes, "A file does not come back as it was.");
    // A text that begins with a mark of its own would lose it to a format without one.
    if (!decoded.format.hasByteOrderMark && units.starts_with(u'\uFEFF')) return 0;
    const DecodedText again = decodeText(std::as_bytes(std::span(saved)), decoded.format.encoding, small);
    require(unitsOf(again.text) == units, "What was saved loads as another text.");
    return 0;
}
