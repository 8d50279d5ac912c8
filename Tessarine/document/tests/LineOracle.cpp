#include "Tessarine/document/tests/LineOracle.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr double estimatedLineHeight = 12.5;

// The length of the break at `at`, or 0.
int breakLengthAt(std::u16string_view text, std::size_t at) {
    if (text.substr(at, 2) == u"\r\n") return 2;
    return std::u16string_view(u"\n\r\u0085\u2028\u2029").contains(text[at]) ? 1 : 0;
}

bool endsInSeparator(std::u16string_view line) {
    return !line.empty() && std::u16string_view(u"\u0085\u2028\u2029").contains(line.back());
}

LineOracle::Fault differenceIf(bool differs, const char* what, std::size_t row) {
    if (!differs) return std::nullopt;
    return std::string(what) + " differs in row " + std::to_string(row);
}

} // namespace

LineOracle::LineOracle(std::u16string_view text)
    : m_text(text)
    , m_stringView(std::make_shared<StringView>(text))
    , m_manager(m_stringView) {
    m_manager.setEstimatedLineHeight(estimatedLineHeight);
    m_manager.rebuild(text);
    m_lines = cut(text);
    for (std::size_t row = 0; row < m_lines.size(); ++row)
        m_lines[row].node = DocumentLineNodeReference(&m_manager.lineAtRow(static_cast<std::int64_t>(row)));
}

std::vector<LineOracle::Line> LineOracle::cut(std::u16string_view text) {
    std::vector<Line> lines;
    std::size_t start = 0;
    const auto add = [&](std::size_t end, int delimiterLength) {
        lines.push_back({.node = {},
                         .text = std::u16string(text.substr(start, end - start)),
                         .start = static_cast<std::int64_t>(start),
                         .delimiterLength = delimiterLength,
                         .height = estimatedLineHeight});
        start = end;
    };
    for (std::size_t at = 0; at < text.size();) {
        const int length = breakLengthAt(text, at);
        at += static_cast<std::size_t>(std::max(length, 1));
        if (length > 0) add(at, length);
    }
    add(text.size(), 0);
    return lines;
}

std::size_t LineOracle::rowOf(std::int64_t location) const {
    const auto behind = std::ranges::upper_bound(m_lines, location, {}, &Line::start);
    return static_cast<std::size_t>(behind - m_lines.begin()) - 1;
}

bool LineOracle::isLeftOut(std::int64_t location, std::int64_t length,
                           std::u16string_view replacement) const {
    const auto at = static_cast<std::size_t>(location);
    if (at == 0 || m_text[at - 1] != u'\r') return false;
    if (replacement.starts_with(u'\n')) return true;
    return replacement.empty() && length == 1 && m_text.compare(at, 2, u"\n\n") == 0;
}

LineOracle::Fault LineOracle::replace(std::int64_t location, std::int64_t length,
                                      std::u16string_view replacement) {
    const std::size_t firstRow = rowOf(location);
    const std::size_t lastRow = rowOf(location + length);
    m_stringView->replaceCharacters(location, length, replacement);
    m_text.replace(static_cast<std::size_t>(location), static_cast<std::size_t>(length), replacement);
    LineChangeSet changes = m_manager.removeCharacters(location, length);
    if (!replacement.empty()) changes.unionWith(m_manager.insertText(replacement, location));
    return takeOver(changes, firstRow, lastRow);
}

std::vector<TextRun> LineOracle::piecesOf(std::size_t pieceLength) const {
    std::vector<TextRun> pieces;
    for (std::size_t at = 0; at < m_text.size(); at += pieceLength)
        pieces.emplace_back(static_cast<std::int64_t>(at),
                            std::span<const char16_t>(std::u16string_view(m_text).substr(at, pieceLength)));
    return pieces;
}

LineOracle::Fault LineOracle::rebuild(std::size_t pieceLength) {
    m_manager.rebuild(piecesOf(pieceLength));
    m_lines = cut(m_text);
    if (static_cast<std::size_t>(m_manager.lineCount()) != m_lines.size()) return "the line count differs";
    for (std::size_t row = 0; row < m_lines.size(); ++row)
        m_lines[row].node = DocumentLineNodeReference(&m_manager.lineAtRow(static_cast<std::int64_t>(row)));
    const auto longest =
        std::ranges::max_element(m_lines, {}, [](const Line& line) { return line.text.size(); });
    const DocumentLineNode* expected = longest->text.empty() ? nullptr : longest->node.get();
    if (m_manager.initialLongestLine() != expected) return "the longest line differs";
    return compareLines();
}

LineOracle::Fault LineOracle::setHeight(std::int64_t row, double height) {
    Line& line = m_lines[static_cast<std::size_t>(row)];
    if (m_manager.setLineHeight(*line.node, height) != (height != line.height))
        return "a height's change differs";
    line.height = height;
    return compareLines();
}

// Follows an edit that lay in the rows [firstRow, lastRow] of the lines before it.
LineOracle::Fault LineOracle::takeOver(const LineChangeSet& changes, std::size_t firstRow,
                                       std::size_t lastRow) {
    const std::vector<Line> before = std::exchange(m_lines, cut(m_text));
    if (static_cast<std::size_t>(m_manager.lineCount()) != m_lines.size()) return "the line count differs";
    std::unordered_map<const DocumentLineNode*, const Line*> linesBefore;
    for (const Line& line : before)
        linesBefore.emplace(line.node.get(), &line);
    for (std::size_t row = 0; row < m_lines.size(); ++row) {
        m_lines[row].node = DocumentLineNodeReference(&m_manager.lineAtRow(static_cast<std::int64_t>(row)));
        const auto found = linesBefore.find(m_lines[row].node.get());
        if (auto fault =
                takeOverLine(m_lines[row], found == linesBefore.end() ? nullptr : found->second, changes))
            return fault;
    }
    if (auto fault = compareEnds(before, firstRow, lastRow)) return fault;
    if (auto fault = compareRemoved(before, changes)) return fault;
    return compareLines();
}

LineOracle::Fault LineOracle::takeOverLine(Line& line, const Line* before,
                                           const LineChangeSet& changes) const {
    const bool isMarked = changes.editedLines().contains(*line.node);
    if (changes.insertedLines().contains(*line.node) != !before) return "an inserted line is not told";
    if (changes.removedLines().contains(*line.node)) return "a present line is told to be removed";
    if (before && before->text != line.text && !isMarked) return "an edited line is not told";
    if (before) line.height = before->height;
    line.isEdited = !before || before->isEdited || isMarked;
    return std::nullopt;
}

// Lines before and behind those of the edit stay what they are.
LineOracle::Fault LineOracle::compareEnds(const std::vector<Line>& before, std::size_t firstRow,
                                          std::size_t lastRow) const {
    const std::size_t behind = before.size() - lastRow - 1;
    const auto isSame = [](const Line& a, const Line& b) { return a.node.get() == b.node.get(); };
    if (!std::equal(before.begin(), before.begin() + firstRow, m_lines.begin(), isSame) ||
        !std::equal(before.end() - behind, before.end(), m_lines.end() - behind, isSame))
        return "a line beside the edit is another one now";
    return std::nullopt;
}

LineOracle::Fault LineOracle::compareRemoved(const std::vector<Line>& before,
                                             const LineChangeSet& changes) const {
    std::unordered_map<const DocumentLineNode*, bool> isPresent;
    for (const Line& line : m_lines)
        isPresent[line.node.get()] = true;
    for (const Line& line : before)
        if (!isPresent[line.node.get()] && !changes.removedLines().contains(*line.node))
            return "a removed line is not told";
    for (const DocumentLineNodeReference& line : changes.insertedLines())
        if (!isPresent[line.get()] && !changes.removedLines().contains(*line))
            return "an inserted line is nowhere";
    return std::nullopt;
}

LineOracle::Fault LineOracle::compareLines() const {
    if (auto fault = m_manager.check()) return fault;
    double y = 0;
    auto nodes = m_manager.documentLineTree().iterator();
    for (std::size_t row = 0; row < m_lines.size(); ++row) {
        if (nodes.next() != m_lines[row].node.get()) return "the iterator finds another line";
        if (auto fault = compareLine(row, y)) return fault;
        y += m_lines[row].height;
    }
    if (nodes.next()) return "the iterator does not end";
    return differenceIf(m_manager.contentHeight() != y, "the height of the content", m_lines.size());
}

LineOracle::Fault LineOracle::compareLine(std::size_t row, double y) const {
    const Line& line = m_lines[row];
    const DocumentLineNode& node = *line.node;
    const DocumentLineNodeData& data = node.data();
    const bool isUnknownBreak = line.isEdited && endsInSeparator(line.text);
    if (auto fault = differenceIf(node.value() != line.end() - line.start, "the length", row)) return fault;
    if (auto fault = differenceIf(node.location() != line.start, "the location", row)) return fault;
    if (auto fault = differenceIf(node.index() != static_cast<std::int64_t>(row), "the index", row))
        return fault;
    if (auto fault = differenceIf(data.delimiterLength() != (isUnknownBreak ? 0 : line.delimiterLength),
                                  "the delimiter", row))
        return fault;
    if (auto fault = differenceIf(data.byteCount() != ByteCount::of(line.text), "the byte count", row))
        return fault;
    if (auto fault = differenceIf(data.startByte() != 2 * line.start, "the start byte", row)) return fault;
    if (auto fault = differenceIf(data.lineHeight() != line.height, "the height", row)) return fault;
    return differenceIf(data.yPosition() != y, "the y position", row);
}

LineOracle::Fault LineOracle::search(std::int64_t location, std::int64_t length) const {
    const std::size_t row = rowOf(location);
    const std::size_t lastRow = rowOf(location + length);
    const Line& line = m_lines[row];
    const LinePosition position{static_cast<std::int64_t>(row), location - line.start};
    if (&m_manager.lineContaining(location) != line.node.get()) return "another line contains the location";
    if (m_manager.linePosition(location) != position) return "the position differs";
    const double y = line.node->data().yPosition();
    for (const double offset : {y, y + line.height / 2})
        if (m_manager.lineContainingYOffset(offset) != line.node.get())
            return "another line lies at the offset";
    if (m_manager.firstAndLastLine(location, length) !=
        std::pair(line.node.get(), m_lines[lastRow].node.get()))
        return "the first or last line differs";
    const auto found = m_manager.linesInRange(location, length);
    const auto expected = std::span(m_lines).subspan(row, lastRow - row + 1);
    const auto isSame = [](const DocumentLineNode* a, const Line& b) { return a == b.node.get(); };
    if (!std::ranges::equal(found, expected, isSame)) return "the lines of the range differ";
    return std::nullopt;
}

} // namespace tessarine
