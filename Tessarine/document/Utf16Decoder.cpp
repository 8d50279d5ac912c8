#include "Tessarine/document/Utf16Decoder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace tessarine {

bool decodeUtf16(std::span<const std::uint8_t> bytes, std::endian order, TextStoreBuilder& builder) {
    std::array<char16_t, 1024> units;
    while (bytes.size() >= 2) {
        const std::size_t count = std::min(bytes.size() / 2, units.size());
        std::memcpy(units.data(), bytes.data(), count * 2);
        if (order != std::endian::native)
            for (char16_t& unit : units)
                unit = static_cast<char16_t>(unit << 8 | unit >> 8);
        builder.append(std::u16string_view(units.data(), count));
        bytes = bytes.subspan(count * 2);
    }
    if (!bytes.empty()) builder.append(u"\uFFFD");
    return !bytes.empty();
}

} // namespace tessarine
