#include "examples/editor/files/FileDecoder.h"

#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/TextStoreBuilder.h"
#include "examples/editor/files/Utf32.h"
#include "examples/editor/files/Windows1252.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace tessarine::editor {

namespace {

using Bytes = std::span<const std::byte>;

std::span<const std::uint8_t> octets(Bytes bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

// The marks of UTF-32 come first, as one of them begins with one of UTF-16.
constexpr std::array markedEncodings{FileEncoding::utf32LittleEndian, FileEncoding::utf32BigEndian,
                                     FileEncoding::utf8, FileEncoding::utf16LittleEndian,
                                     FileEncoding::utf16BigEndian};

bool startsWithMark(Bytes bytes, FileEncoding encoding) {
    const auto mark = byteOrderMark(encoding);
    return bytes.size() >= mark.size() && std::ranges::equal(octets(bytes).first(mark.size()), mark);
}

std::optional<FileEncoding> markedEncoding(Bytes bytes) {
    const auto* const found = std::ranges::find_if(
        markedEncodings, [bytes](FileEncoding encoding) { return startsWithMark(bytes, encoding); });
    return found == markedEncodings.end() ? std::nullopt : std::optional(*found);
}

DecodedFile decodeMarked(Bytes bytes, FileEncoding encoding) {
    const FileFormat format{encoding, true};
    if (isUtf32(encoding)) {
        auto [text, isMalformed] = decodeUtf32(octets(bytes).subspan(4), encoding);
        return {std::move(text), format, isMalformed};
    }
    DecodedText decoded = decodeText(bytes); // sees the same mark
    return {std::move(decoded.text), format, decoded.hasReplacements};
}

DecodedFile decodeWindows1252(Bytes bytes) {
    TextStoreBuilder builder;
    std::u16string units;
    for (auto rest = octets(bytes); !rest.empty(); rest = rest.subspan(units.size())) {
        units.resize(std::min<std::size_t>(rest.size(), 4096));
        std::ranges::transform(rest.first(units.size()), units.begin(), fromWindows1252);
        builder.append(units);
    }
    return {builder.take(), {FileEncoding::windows1252, false}};
}

DecodedFile decodeUnmarked(Bytes bytes) {
    DecodedText decoded = decodeText(bytes, TextEncoding::utf8);
    if (decoded.hasReplacements) return decodeWindows1252(bytes);
    return {std::move(decoded.text), {FileEncoding::utf8, false}};
}

bool holdsNul(const TextSnapshot& text) {
    return std::ranges::any_of(text.runs(), [](const TextRun& run) {
        return run.visit([](auto units) { return std::ranges::find(units, 0) != units.end(); });
    });
}

} // namespace

std::expected<DecodedFile, DecodingError> decodeFile(std::span<const std::byte> bytes) {
    const auto encoding = markedEncoding(bytes);
    DecodedFile decoded = encoding ? decodeMarked(bytes, *encoding) : decodeUnmarked(bytes);
    if (holdsNul(decoded.text.text())) return std::unexpected(DecodingError::notText);
    return decoded;
}

} // namespace tessarine::editor
