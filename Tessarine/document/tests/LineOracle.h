#pragma once

#include "Tessarine/document/LineManager.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessarine {

// A document whose lines are kept twice: by a LineManager, and by cutting the whole text anew after each
// edit. Every operation returns the first difference that it finds, or nothing.
class LineOracle {
public:
    using Fault = std::optional<std::string>;

    explicit LineOracle(std::u16string_view text = {});

    const std::u16string& text() const { return m_text; }

    const LineManager& manager() const { return m_manager; }

    // The two replacements after which the lines are, by design, not those of the text: an LF put directly
    // behind a CR is lost with what follows, and the removal of the LF of a CR LF in front of another LF
    // leaves that one in a line of its own.
    bool isLeftOut(std::int64_t location, std::int64_t length, std::u16string_view replacement) const;

    Fault replace(std::int64_t location, std::int64_t length, std::u16string_view replacement);

    // From pieces of this length at most.
    Fault rebuild(std::size_t pieceLength);

    // Heights must be sums of powers of two, so that their totals do not depend on the order of addition.
    Fault setHeight(std::int64_t row, double height);

    // Compares what the searches find at the ends of a range of the text, and within it.
    Fault search(std::int64_t location, std::int64_t length) const;

private:
    struct Line {
        DocumentLineNodeReference node;
        std::u16string text;
        std::int64_t start = 0;
        int delimiterLength = 0;
        double height = 0;
        bool isEdited = false; // since it was built from the whole text

        std::int64_t end() const { return start + static_cast<std::int64_t>(text.size()); }
    };

    static std::vector<Line> cut(std::u16string_view text);
    std::size_t rowOf(std::int64_t location) const;
    std::vector<TextRun> piecesOf(std::size_t pieceLength) const;

    Fault takeOver(const LineChangeSet& changes, std::size_t firstRow, std::size_t lastRow);
    Fault takeOverLine(Line& line, const Line* before, const LineChangeSet& changes) const;
    Fault compareEnds(const std::vector<Line>& before, std::size_t firstRow, std::size_t lastRow) const;
    Fault compareRemoved(const std::vector<Line>& before, const LineChangeSet& changes) const;
    Fault compareLines() const;
    Fault compareLine(std::size_t row, double y) const;

    std::u16string m_text;
    std::shared_ptr<StringView> m_stringView;
    LineManager m_manager;
    std::vector<Line> m_lines;
};

} // namespace tessarine
