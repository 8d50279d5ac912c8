#include "Tessarine/document/TextDecoder.h"

#include "Tessarine/document/ByteOrderMark.h"
#include "Tessarine/document/TextStoreBuilder.h"
#include "Tessarine/document/Utf16Decoder.h"
#include "Tessarine/document/Utf8Decoder.h"

namespace tessarine {

namespace {

using Bytes = std::span<const std::uint8_t>;

std::optional<TextEncoding> markedEncoding(Bytes bytes) {
    for (const TextEncoding encoding :
         {TextEncoding::utf8, TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian})
        if (startsWithMark(bytes, encoding)) return encoding;
    return std::nullopt;
}

// Whether something was replaced.
bool decode(Bytes bytes, TextEncoding encoding, TextStoreBuilder& builder) {
    switch (encoding) {
    case TextEncoding::utf8:
        return decodeUtf8(bytes, builder);
    case TextEncoding::utf16LittleEndian:
        return decodeUtf16(bytes, std::endian::little, builder);
    case TextEncoding::utf16BigEndian:
        return decodeUtf16(bytes, std::endian::big, builder);
    case TextEncoding::latin1:
        builder.appendLatin1(bytes);
    }
    return false;
}

} // namespace

DecodedText decodeText(std::span<const std::byte> bytes, std::optional<TextEncoding> encoding,
                       TextStoreLimits limits) {
    // std::uint8_t is unsigned char, through which any bytes may be read.
    Bytes rest(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    TextFormat format{encoding.value_or(markedEncoding(rest).value_or(TextEncoding::utf8))};
    format.hasByteOrderMark = startsWithMark(rest, format.encoding);
    if (format.hasByteOrderMark) rest = rest.subspan(byteOrderMark(format.encoding).size());
    TextStoreBuilder builder(limits);
    const bool hasReplacements = decode(rest, format.encoding, builder);
    return {builder.take(), format, hasReplacements};
}

} // namespace tessarine
