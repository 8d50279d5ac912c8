#pragma once

#include "Tessarine/syntax/TreeSitterInjectedLanguage.h"
#include "Tessarine/syntax/TreeSitterLanguageLayer.h"

#include <unordered_map>
#include <vector>

namespace tessarine {

// Finds for stretches of the new tree which child of the old layer is their earlier self. For one reparse.
//
// The parser keeps the id of a node that no edit came near, so an id is the sure sign. A node that was made
// anew around an edit has another: such a stretch is known by its place and language. Whatever is taken is
// taken once.
class ChildLayerMatcher {
public:
    explicit ChildLayerMatcher(std::size_t capacity);

    // `range` is that of the child after the edits.
    void add(const TreeSitterLanguageLayer::Child& child, const TreeSitterTextRange& range);

    // Null if none has the id. The language is not compared.
    TreeSitterLanguageLayer::Reference takeWithId(const void* id);

    // Null if none of those left is of that language and starts or ends where the range does.
    TreeSitterLanguageLayer::Reference takeAtPlace(const TreeSitterTextRange& range,
                                                   const TreeSitterInternalLanguage::Reference& language);

    // Where the children that nobody took would stand now.
    std::vector<TreeSitterTextRange> rangesOfRest() const;

private:
    struct Entry {
        TreeSitterLanguageLayer::Reference layer; // null when it is taken
        TreeSitterTextRange range;                // after the edits
    };

    void indexPlaces();

    std::vector<Entry> m_entries;
    std::unordered_map<const void*, std::size_t> m_entryOfId;
    std::unordered_multimap<std::int64_t, std::size_t> m_entriesAtPlace; // made when it is first needed
    bool m_hasPlaces = false;
};

} // namespace tessarine
