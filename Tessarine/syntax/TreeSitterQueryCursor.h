#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterQuery.h"
#include "Tessarine/syntax/TreeSitterQueryMatch.h"

#include <memory>
#include <tree_sitter/api.h>

namespace tessarine {

// Runs a query once in a node. Borrows the query, the node's tree and the limit; for the stack of one
// operation.
class TreeSitterQueryCursor {
public:
    // Once the limit is reached there are no more matches.
    TreeSitterQueryCursor(const TreeSitterQuery& query, TreeSitterNode node, const ParseLimit& limit);

    TreeSitterQueryCursor(const TreeSitterQuery& query, TreeSitterNode node)
        : TreeSitterQueryCursor(query, node, unlimited) {}

    // Only matches that touch the range. Before execute(). A range that does not fit into 32 bits stops the
    // program.
    void setQueryRange(const ByteRange& range);

    // Has no effect the second time.
    void execute();

    // False when there are no more, and before execute(); else `match` is the next one. Handing in the same
    // object again saves its memory.
    bool nextMatch(TreeSitterQueryMatch& match);

private:
    struct Delete {
        void operator()(TSQueryCursor* cursor) const { ts_query_cursor_delete(cursor); }
    };

    static const ParseLimit unlimited;

    const TreeSitterQuery& m_query;
    TreeSitterNode m_node;
    TSQueryCursorOptions m_options{};
    bool m_haveExecuted = false;
    std::unique_ptr<TSQueryCursor, Delete> m_pointer;
};

} // namespace tessarine
