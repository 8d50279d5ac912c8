#include "Tessarine/syntax/TreeSitterTextInput.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"

#include <cstring>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

constexpr std::uint32_t unitSize = sizeof(char16_t);

bool endsInLeadSurrogate(const std::byte* bytes, std::uint32_t length) {
    char16_t last = 0;
    if (length < unitSize) return false;
    std::memcpy(&last, bytes + length - unitSize, unitSize);
    return U16_IS_LEAD(last);
}

// The same bytes with a unit behind them that pairs with nothing.
std::unique_ptr<std::byte[]> padded(const std::byte* bytes, std::uint32_t length) {
    auto copy = std::make_unique<std::byte[]>(length + unitSize);
    std::memcpy(copy.get(), bytes, length);
    return copy;
}

} // namespace

TSInput TreeSitterTextInput::rawValue() {
    return {.payload = this, .read = read, .encoding = preferredUTF16Encoding, .decode = nullptr};
}

const char* TreeSitterTextInput::read(void* payload, std::uint32_t byteIndex, TSPoint position,
                                      std::uint32_t* length) {
    auto& input = *static_cast<TreeSitterTextInput*>(payload);
    auto result = input.m_callback(byteIndex, TreeSitterTextPoint(position));
    std::uint32_t kept = 0;
    const char* bytes = result && result->bytes ? input.keep(std::move(*result), kept) : nullptr;
    if (length) *length = kept;
    return bytes;
}

const char* TreeSitterTextInput::keep(TreeSitterTextProviderResult result, std::uint32_t& length) {
    length = result.length;
    if (endsInLeadSurrogate(result.bytes.get(), length)) {
        if (length > unitSize)
            length -= unitSize;
        else
            result.bytes = padded(result.bytes.get(), length);
    }
    m_bytes = std::move(result.bytes);
    return reinterpret_cast<const char*>(m_bytes.get());
}

} // namespace tessarine
