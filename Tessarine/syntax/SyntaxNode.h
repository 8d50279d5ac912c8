#pragma once

#include "Tessarine/document/TextLocation.h"

#include <string>

namespace tessarine {

// A node of the syntax as embedding code sees it.
struct SyntaxNode {
    std::string type;
    TextLocation startLocation;
    TextLocation endLocation;

    friend bool operator==(const SyntaxNode&, const SyntaxNode&) = default;
};

} // namespace tessarine
