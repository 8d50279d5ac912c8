#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterParserDelegate.h"
#include "Tessarine/syntax/TreeSitterTextRange.h"
#include "Tessarine/syntax/TreeSitterTree.h"

#include <memory>
#include <span>
#include <tree_sitter/api.h>

namespace tessarine {

// Parses UTF-16 text of one language at a time. Thread: one at a time.
class TreeSitterParser {
public:
    explicit TreeSitterParser(TSInputEncoding encoding);

    TSInputEncoding encoding() const { return m_encoding; }

    // Has the text for parse() with an old tree. Once it is gone, the text is empty.
    void setDelegate(std::weak_ptr<TreeSitterParserDelegate> delegate) { m_delegate = std::move(delegate); }

    const TSLanguage* language() const { return m_language; }

    void setLanguage(const TSLanguage* language);

    // The tree of what the delegate reads out. An old tree must have been told of all edits since; what they
    // left alone is taken over and not read. Null when there is no language or the limit was reached.
    TreeSitterTree::Reference parse(const TreeSitterTree* oldTree, const ParseLimit& limit = {});

    // The tree of a whole text, without a delegate. An empty text has none.
    TreeSitterTree::Reference parse(const TextSnapshot& text, const TreeSitterTree* oldTree,
                                    const ParseLimit& limit = {});

    // The stretches of the text to parse, in ascending order; whatever lies between them is as if it were not
    // there. False, and no change, if they overlap.
    bool setIncludedRanges(std::span<const TreeSitterTextRange> ranges);

    void removeAllIncludedRanges() { ts_parser_set_included_ranges(m_pointer.get(), nullptr, 0); }

private:
    struct Delete {
        void operator()(TSParser* parser) const { ts_parser_delete(parser); }
    };

    TreeSitterTree::Reference parse(const TreeSitterTree* oldTree, const TSInput& input,
                                    const ParseLimit& limit);

    const TSInputEncoding m_encoding;
    const TSLanguage* m_language = nullptr;
    std::weak_ptr<TreeSitterParserDelegate> m_delegate;
    std::unique_ptr<TSParser, Delete> m_pointer;
};

} // namespace tessarine
