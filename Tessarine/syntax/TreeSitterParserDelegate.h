#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/syntax/TreeSitterTextProviderResult.h"

#include <optional>

namespace tessarine {

// Whoever has the text that a parser reads.
class TreeSitterParserDelegate {
public:
    TreeSitterParserDelegate() = default;
    TreeSitterParserDelegate(const TreeSitterParserDelegate&) = delete;
    TreeSitterParserDelegate& operator=(const TreeSitterParserDelegate&) = delete;
    virtual ~TreeSitterParserDelegate() = default;

    // A piece of the text from there on; nothing at its end.
    virtual std::optional<TreeSitterTextProviderResult> parserBytesAt(ByteCount byteIndex) = 0;
};

} // namespace tessarine
