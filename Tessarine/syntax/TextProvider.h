#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterParserDelegate.h"

#include <optional>

namespace tessarine {

// What bytesAt() gives, as a parser takes it.
std::optional<TreeSitterTextProviderResult> textProviderResult(const TextSnapshot& text, ByteCount byteIndex);

// A text that does not change, for a parser on another thread.
class SnapshotTextProvider final : public TreeSitterParserDelegate {
public:
    explicit SnapshotTextProvider(TextSnapshot text)
        : m_text(std::move(text)) {}

    std::optional<TreeSitterTextProviderResult> parserBytesAt(ByteCount byteIndex) override {
        return textProviderResult(m_text, byteIndex);
    }

private:
    TextSnapshot m_text;
};

} // namespace tessarine
