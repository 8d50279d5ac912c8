#include "Tessarine/syntax/TextProvider.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr std::int64_t mostUnits = 2048;

} // namespace

std::optional<TreeSitterTextProviderResult> textProviderResult(const TextSnapshot& text,
                                                               ByteCount byteIndex) {
    const std::int64_t location = byteIndex.value() / 2;
    if (byteIndex < 0 || location >= text.length()) return std::nullopt;
    const std::int64_t count = std::min(mostUnits, text.length() - location);
    auto bytes = std::make_unique_for_overwrite<std::byte[]>(static_cast<std::size_t>(2 * count));
    // A fresh array of bytes is aligned for, and may hold, an array of code units.
    text.copy(location, count, reinterpret_cast<char16_t*>(bytes.get()));
    return TreeSitterTextProviderResult{std::move(bytes), static_cast<std::uint32_t>(2 * count)};
}

} // namespace tessarine
