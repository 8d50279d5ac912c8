#include "Tessarine/syntax/TreeSitterQueryCursor.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/syntax/Checked32.h"

#include <span>

namespace tessarine {

namespace {

bool limitIsReached(TSQueryCursorState* state) {
    return static_cast<const ParseLimit*>(state->payload)->isReached();
}

} // namespace

const ParseLimit TreeSitterQueryCursor::unlimited;

TreeSitterQueryCursor::TreeSitterQueryCursor(const TreeSitterQuery& query, TreeSitterNode node,
                                             const ParseLimit& limit)
    : m_query(query)
    , m_node(node)
    , m_pointer(ts_query_cursor_new()) {
    if (!m_pointer) fatalError("Cannot create a query cursor.");
    if (limit.canBeReached())
        m_options = {.payload = const_cast<ParseLimit*>(&limit), .progress_callback = limitIsReached};
}

void TreeSitterQueryCursor::setQueryRange(const ByteRange& range) {
    ts_query_cursor_set_byte_range(m_pointer.get(), checked32(range.location.value()),
                                   checked32((range.location + range.length).value()));
}

void TreeSitterQueryCursor::execute() {
    if (m_haveExecuted) return;
    m_haveExecuted = true;
    ts_query_cursor_exec_with_options(m_pointer.get(), m_query.pointer(), m_node.rawValue(),
                                      m_options.progress_callback ? &m_options : nullptr);
}

bool TreeSitterQueryCursor::nextMatch(TreeSitterQueryMatch& match) {
    TSQueryMatch found{};
    if (!m_haveExecuted || !ts_query_cursor_next_match(m_pointer.get(), &found)) return false;
    match.m_captures.clear();
    for (const TSQueryCapture& capture : std::span(found.captures, found.capture_count))
        match.m_captures.emplace_back(m_query, TreeSitterNode(capture.node), capture.index,
                                      found.pattern_index);
    return true;
}

} // namespace tessarine
