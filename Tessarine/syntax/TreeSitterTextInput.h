#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/syntax/TreeSitterTextPoint.h"
#include "Tessarine/syntax/TreeSitterTextProviderResult.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <tree_sitter/api.h>

namespace tessarine {

// The text of one parse, piece by piece from a callback. It keeps the last piece until the next one or the
// end of the parse, as the parser may still look at it: so all pieces take turns in the same memory.
//
// A piece never ends with the first half of a surrogate pair, unless it is nothing but that: the parser would
// look for the other half behind the piece. So pairs are read whole, wherever pieces end.
class TreeSitterTextInput {
public:
    using Callback =
        std::function<std::optional<TreeSitterTextProviderResult>(ByteCount, TreeSitterTextPoint)>;

    explicit TreeSitterTextInput(Callback callback)
        : m_callback(std::move(callback)) {}

    TreeSitterTextInput(const TreeSitterTextInput&) = delete;
    TreeSitterTextInput& operator=(const TreeSitterTextInput&) = delete;

    // As the parser takes it; borrows the object.
    TSInput rawValue();

private:
    static const char* read(void* payload, std::uint32_t byteIndex, TSPoint position, std::uint32_t* length);

    const char* keep(TreeSitterTextProviderResult result, std::uint32_t& length);

    Callback m_callback;
    std::unique_ptr<std::byte[]> m_bytes;
};

} // namespace tessarine
