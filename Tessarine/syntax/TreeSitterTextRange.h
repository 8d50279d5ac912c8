#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/syntax/TreeSitterTextPoint.h"

#include <string>
#include <tree_sitter/api.h>

namespace tessarine {

// [startByte, endByte) of the text, with the points of both ends.
class TreeSitterTextRange {
public:
    explicit TreeSitterTextRange(const TSRange& rawValue)
        : m_rawValue(rawValue) {}

    const TSRange& rawValue() const { return m_rawValue; }

    TreeSitterTextPoint startPoint() const { return TreeSitterTextPoint(m_rawValue.start_point); }

    TreeSitterTextPoint endPoint() const { return TreeSitterTextPoint(m_rawValue.end_point); }

    ByteCount startByte() const { return m_rawValue.start_byte; }

    ByteCount endByte() const { return m_rawValue.end_byte; }

    std::string debugDescription() const;

    friend bool operator==(const TreeSitterTextRange& a, const TreeSitterTextRange& b) {
        return a.startByte() == b.startByte() && a.endByte() == b.endByte() &&
               a.startPoint() == b.startPoint() && a.endPoint() == b.endPoint();
    }

private:
    TSRange m_rawValue;
};

} // namespace tessarine
