#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tessarine {

// A piece of the text for the parser, in UTF-16 of the machine's byte order.
struct TreeSitterTextProviderResult {
    std::unique_ptr<std::byte[]> bytes;
    std::uint32_t length = 0;
};

} // namespace tessarine
