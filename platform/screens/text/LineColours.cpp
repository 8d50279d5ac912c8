#include "platform/screens/text/LineColours.h"

#include <algorithm>

namespace platform {

namespace {

// Code units. Every colour is a piece of its own for the toolkit to shape, and it shapes a whole line for
// each key that is typed in it.
constexpr int longestColouredLine = 20'000;

QTextCharFormat formatOf(const TextAttributes& attributes) {
    QTextCharFormat format;
    if (attributes.foreground) format.setForeground(QColor::fromRgba(*attributes.foreground));
    if (attributes.background) format.setBackground(QColor::fromRgba(*attributes.background));
    if (attributes.bold) format.setFontWeight(QFont::Bold);
    if (attributes.italic) format.setFontItalic(true);
    if (attributes.underline) format.setFontUnderline(true);
    return format;
}

} // namespace

LineColours::LineColours(QStringView text, const std::vector<AttributeRun>& runs) {
    auto run = runs.begin();
    for (qsizetype start = 0; start <= text.size();) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype limit = found < 0 ? text.size() : found;
        const std::size_t first = m_spans.size();
        while (run != runs.end() && run->limit <= start)
            ++run;
        // A run over several lines is met again in the next one.
        for (auto each = run; each != runs.end() && each->start < limit; ++each) {
            const qsizetype from = std::max(each->start, start);
            const qsizetype to = std::min(each->limit, limit);
            if (from >= to) continue;
            const bool isOpen = to == limit && text.sliced(from, to - from).contains(u' ');
            m_spans.push_back({static_cast<int>(from - start), static_cast<int>(to - start),
                               formatIndex(each->attributes), isOpen});
        }
        m_lines.push_back(
            {first, static_cast<unsigned>(m_spans.size() - first), static_cast<int>(limit - start)});
        start = limit + 1;
    }
}

unsigned LineColours::formatIndex(const TextAttributes& attributes) {
    const auto found = std::ranges::find(m_attributes, attributes);
    const auto index = static_cast<unsigned>(found - m_attributes.begin());
    if (found == m_attributes.end()) {
        m_attributes.push_back(attributes);
        m_formats.push_back(formatOf(attributes));
    }
    return index;
}

std::span<const LineColours::Span> LineColours::spansOf(const Line& line) const {
    return std::span(m_spans).subspan(line.first, line.count);
}

LineColours::Line LineColours::store(const std::vector<Span>& spans, int length) {
    const std::size_t first = m_spans.size();
    m_spans.insert(m_spans.end(), spans.begin(), spans.end());
    return {first, static_cast<unsigned>(spans.size()), length};
}

LineColours::Line LineColours::spliced(const Line& line, const Splice& splice) {
    const int moved = splice.newLimit - splice.oldLimit;
    std::vector<Span> spans;
    for (Span span : spansOf(line)) {
        const bool begins = span.start < splice.start;
        if (span.start >= splice.oldLimit) {
            span.start += moved;
            span.limit += moved;
        } else if (span.limit > splice.oldLimit ||
                   (span.isOpen && begins && span.limit == splice.oldLimit && span.limit == line.length)) {
            if (!begins) span.start = splice.newLimit;
            span.limit += moved;
        } else if (begins) {
            span.limit = std::min(span.limit, splice.start);
        } else {
            continue;
        }
        if (span.start < span.limit) spans.push_back(span);
    }
    return store(spans, line.length + moved);
}

void LineColours::edit(const LineEdit& edit) {
    if (isEmpty()) return;
    if (edit.line + edit.gone >= m_lines.size()) {
        *this = {};
        return;
    }
    if (edit.gone + 1 != edit.lengths.size())
        editAcross(edit);
    else if (edit.gone == 0)
        editInside(edit);
    else
        adjustEach(edit);
}

void LineColours::editInside(const LineEdit& edit) {
    Line& line = m_lines[edit.line];
    const int length = edit.lengths[0];
    if (length == line.length) return;
    const int oldLimit = std::max(edit.column, line.length - edit.tail);
    const Line changed = spliced(line, {edit.column, oldLimit, oldLimit + length - line.length});
    m_lines[edit.line] = changed;
}

// Lines came or went: what lies before the edit and behind it keeps its colours.
void LineColours::editAcross(const LineEdit& edit) {
    const Line first = m_lines[edit.line];
    const Line last = m_lines[edit.line + edit.gone];
    std::vector<Span> head;
    for (Span span : spansOf(first)) {
        span.limit = std::min(span.limit, edit.column);
        if (span.start < span.limit) head.push_back(span);
    }
    std::vector<Span> rest;
    const int from = std::max(0, last.length - edit.tail);
    const int moved = edit.lengths.back() - last.length;
    for (Span span : spansOf(last)) {
        span.start = std::max(span.start, from) + moved;
        span.limit += moved;
        if (span.start < span.limit) rest.push_back(span);
    }
    std::vector<Line> lines(edit.lengths.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i].length = edit.lengths[i];
    if (lines.size() == 1) {
        head.insert(head.end(), rest.begin(), rest.end());
        lines[0] = store(head, edit.lengths[0]);
    } else {
        lines.front() = store(head, edit.lengths.front());
        lines.back() = store(rest, edit.lengths.back());
    }
    const auto at = m_lines.begin() + static_cast<std::ptrdiff_t>(edit.line);
    const std::size_t kept = std::min(edit.gone + 1, lines.size());
    std::copy_n(lines.begin(), kept, at);
    const auto behind = at + static_cast<std::ptrdiff_t>(kept);
    if (lines.size() > kept)
        m_lines.insert(behind, lines.begin() + static_cast<std::ptrdiff_t>(kept), lines.end());
    else
        m_lines.erase(behind, at + static_cast<std::ptrdiff_t>(edit.gone + 1));
}

// As many lines as before, which is what one step over many lines does, such as an indent: each line keeps
// its colours, moved by what it grew in front.
void LineColours::adjustEach(const LineEdit& edit) {
    for (std::size_t i = 0; i < edit.lengths.size(); ++i) {
        const Line line = m_lines[edit.line + i];
        if (line.length == edit.lengths[i]) continue;
        const int grown = std::max(0, edit.lengths[i] - line.length);
        const int shrunk = std::max(0, line.length - edit.lengths[i]);
        m_lines[edit.line + i] = spliced(line, {0, shrunk, grown});
    }
}

QList<QTextLayout::FormatRange> LineColours::formats(std::size_t line) const {
    QList<QTextLayout::FormatRange> formats;
    if (line >= m_lines.size() || m_lines[line].length > longestColouredLine) return formats;
    for (const Span& span : spansOf(m_lines[line]))
        formats.append({span.start, span.limit - span.start, m_formats[span.format]});
    return formats;
}

} // namespace platform
