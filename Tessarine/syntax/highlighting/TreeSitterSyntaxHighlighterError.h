#pragma once

#include <string_view>

namespace tessarine {

// Why a line did not get its colours in the background: it was called off, or whoever asked for it has gone.
enum class TreeSitterSyntaxHighlighterError { Cancelled, OperationDeallocated };

constexpr std::string_view description(TreeSitterSyntaxHighlighterError error) {
    return error == TreeSitterSyntaxHighlighterError::Cancelled ? "Operation was cancelled"
                                                                : "The operation was deallocated";
}

} // namespace tessarine
