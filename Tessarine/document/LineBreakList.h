#pragma once

#include "Tessarine/document/LineBreakScanner.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessarine {

// The lines of a text, found in one scan, for the balanced build of the tree: how many they are must be known
// before the first is made. 8 bytes a line.
class LineBreakList {
public:
    struct Line {
        std::int64_t length; // delimiter included
        int delimiterLength;
    };

    // For a text of so many code units in all. Memory that is never touched costs nothing, while a list that
    // grows is copied again and again.
    explicit LineBreakList(std::int64_t length) {
        m_lines.reserve(static_cast<std::size_t>(length) / shortestUsualLine);
    }

    // The next stretch of the text.
    template <class Unit>
    void append(std::span<const Unit> piece) {
        m_scanner.scan(piece, [this](LineBreak lineBreak) { endLine(lineBreak); });
    }

    // The text is complete: what stands behind the last break is the last line.
    void finish() {
        m_scanner.finish([this](LineBreak lineBreak) { endLine(lineBreak); });
        endLine({m_scanner.position(), 0});
    }

    // At least 1 after finish().
    std::size_t count() const { return m_lines.size(); }

    // The row of the first of the longest lines; absent if all are empty.
    std::optional<std::size_t> longestRow() const { return m_longestRow; }

    // Hands out the lines in document order.
    Line next() {
        const std::int64_t line = m_lines[m_next++];
        return {line / 4, static_cast<int>(line % 4)};
    }

private:
    static constexpr std::size_t shortestUsualLine = 32;

    void endLine(LineBreak lineBreak) {
        const std::int64_t length = lineBreak.end() - m_lineStart;
        m_lineStart = lineBreak.end();
        if (length > m_longestLength) {
            m_longestLength = length;
            m_longestRow = m_lines.size();
        }
        m_lines.push_back(4 * length + lineBreak.length);
    }

    LineBreakScanner m_scanner;
    std::vector<std::int64_t> m_lines; // four times the length, plus the delimiter's
    std::int64_t m_lineStart = 0;
    std::int64_t m_longestLength = 0;
    std::optional<std::size_t> m_longestRow;
    std::size_t m_next = 0;
};

} // namespace tessarine
