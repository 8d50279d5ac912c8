#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/syntax/TreeSitterTextPoint.h"

#include <string>
#include <tree_sitter/api.h>

namespace tessarine {

// One change of the text, as trees are told of it: [startByte, oldEndByte) became [startByte, newEndByte).
struct TreeSitterInputEdit {
    ByteCount startByte;
    ByteCount oldEndByte;
    ByteCount newEndByte;
    TreeSitterTextPoint startPoint;
    TreeSitterTextPoint oldEndPoint;
    TreeSitterTextPoint newEndPoint;

    // A number that does not fit into 32 bits stops the program.
    TSInputEdit rawValue() const;

    std::string debugDescription() const;
};

} // namespace tessarine
