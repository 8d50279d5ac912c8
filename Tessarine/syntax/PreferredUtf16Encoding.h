#pragma once

#include <bit>
#include <tree_sitter/api.h>

namespace tessarine {

// UTF-16 as it lies in the memory of this machine.
inline constexpr TSInputEncoding preferredUTF16Encoding =
    std::endian::native == std::endian::little ? TSInputEncodingUTF16LE : TSInputEncodingUTF16BE;

} // namespace tessarine
