#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/EditedRange.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterInjectedLanguage.h"
#include "Tessarine/syntax/TreeSitterQuery.h"
#include "Tessarine/syntax/TreeSitterQueryCursor.h"
#include "Tessarine/syntax/TreeSitterTree.h"

#include <vector>

namespace tessarine {

struct FoundInjections {
    std::vector<TreeSitterInjectedLanguage> injections; // one a node
    // Whether every match told its languages itself. The text "language" of one match may name the language
    // of the next one's "content": then no part of the tree tells what the whole does.
    bool areIndependent = true;
};

// Finds with an injections query which stretches are written in other languages. For one reparse; borrows
// everything. Once the limit is reached it finds no more.
class InjectionsSearch {
public:
    InjectionsSearch(const TreeSitterQuery& query, const TextSnapshot& text, const ParseLimit& limit)
        : m_query(query)
        , m_text(text)
        , m_limit(limit) {}

    FoundInjections inWholeTree(const TreeSitterTree& tree) const;

    // Of matches of which a node touches the interval; their stretches may lie elsewhere.
    FoundInjections near(ByteInterval interval, const TreeSitterTree& tree) const;

    // The interval grown to all that matches touching it may have captured, whatever the text was.
    ByteInterval grownToCaptures(ByteInterval interval, const TreeSitterTree& tree) const;

private:
    FoundInjections found(TreeSitterQueryCursor& cursor) const;

    const TreeSitterQuery& m_query;
    const TextSnapshot& m_text;
    const ParseLimit& m_limit;
};

} // namespace tessarine
