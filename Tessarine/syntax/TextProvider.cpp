#include "Tessarine/syntax/TextProvider.h"

#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/Checked32.h"

namespace tessarine {

std::optional<TreeSitterTextProviderResult> textProviderResult(const TextSnapshot& text,
                                                               ByteCount byteIndex) {
    auto piece = bytesAt(text, byteIndex);
    if (!piece) return std::nullopt;
    return TreeSitterTextProviderResult{std::move(piece->bytes), checked32(piece->length.value())};
}

} // namespace tessarine
