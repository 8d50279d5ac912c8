#include "Tessarine/document/TextEncoder.h"

#include "Tessarine/document/ByteOrderMark.h"
#include "Tessarine/document/Utf8Encoder.h"

#include <algorithm>
#include <bit>
#include <vector>

namespace tessarine {

namespace {

using Sink = std::function<void(std::span<const std::byte>)>;

std::int64_t firstAboveLatin1(const TextSnapshot& text) {
    for (const TextRun& run : text.runs())
        for (std::int64_t at = run.location(); run.isWide() && at < run.limit(); ++at)
            if (run.at(at) > 0xFF) return at;
    return text.length();
}

void encodeUtf16(const TextSnapshot& text, std::endian order, const Sink& sink) {
    std::vector<char16_t> units;
    for (const TextRun& run : text.runs()) {
        units.resize(static_cast<std::size_t>(run.size()));
        run.copyTo(units.data());
        if (order != std::endian::native)
            for (char16_t& unit : units)
                unit = static_cast<char16_t>(unit << 8 | unit >> 8);
        sink(std::as_bytes(std::span(units)));
    }
}

// Requires that there is nothing above U+00FF: then every run has one byte a unit.
void encodeLatin1(const TextSnapshot& text, const Sink& sink) {
    for (const TextRun& run : text.runs())
        run.visit([&sink](auto units) { sink(std::as_bytes(units)); });
}

EncodedText encodeUtf8(const TextSnapshot& text, const Sink& sink) {
    Utf8Encoder encoder;
    for (const TextRun& run : text.runs())
        sink(std::as_bytes(encoder.encode(run)));
    if (const auto rest = encoder.finish(); !rest.empty()) sink(std::as_bytes(rest));
    return {encoder.hasReplacements()};
}

} // namespace

std::expected<EncodedText, UnencodableText> encodeText(const TextSnapshot& text, TextFormat format,
                                                       const Sink& sink) {
    if (format.encoding == TextEncoding::latin1)
        if (const std::int64_t location = firstAboveLatin1(text); location < text.length())
            return std::unexpected(UnencodableText{location});
    if (format.hasByteOrderMark) sink(std::as_bytes(byteOrderMark(format.encoding)));
    switch (format.encoding) {
    case TextEncoding::utf8:
        return encodeUtf8(text, sink);
    case TextEncoding::utf16LittleEndian:
        encodeUtf16(text, std::endian::little, sink);
        break;
    case TextEncoding::utf16BigEndian:
        encodeUtf16(text, std::endian::big, sink);
        break;
    case TextEncoding::latin1:
        encodeLatin1(text, sink);
    }
    return EncodedText();
}

} // namespace tessarine
