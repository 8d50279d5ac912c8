#pragma once

#include "Tessarine/document/LinePosition.h"

#include <cstdint>
#include <string>
#include <tree_sitter/api.h>

namespace tessarine {

// A place by row and column, both zero-based; unlike a LinePosition's the column counts bytes, two a code
// unit.
class TreeSitterTextPoint {
public:
    explicit TreeSitterTextPoint(TSPoint rawValue)
        : m_rawValue(rawValue) {}

    // A number that does not fit stops the program.
    explicit TreeSitterTextPoint(const LinePosition& position);

    TSPoint rawValue() const { return m_rawValue; }

    std::uint32_t row() const { return m_rawValue.row; }

    std::uint32_t column() const { return m_rawValue.column; }

    std::string debugDescription() const;

    friend bool operator==(const TreeSitterTextPoint& a, const TreeSitterTextPoint& b) {
        return a.row() == b.row() && a.column() == b.column();
    }

    friend bool operator<(const TreeSitterTextPoint& a, const TreeSitterTextPoint& b) {
        return a.row() < b.row() || (a.row() == b.row() && a.column() < b.column());
    }

private:
    TSPoint m_rawValue;
};

} // namespace tessarine
