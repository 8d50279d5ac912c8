#pragma once

#include "Tessarine/syntax/TreeSitterIndentationScopes.h"
#include "Tessarine/syntax/TreeSitterQuery.h"

#include <memory>
#include <optional>
#include <tree_sitter/api.h>

namespace tessarine {

// A grammar with its queries compiled. Null where there is no query or it does not compile. It never changes;
// any thread.
struct TreeSitterInternalLanguage {
    using Reference = std::shared_ptr<const TreeSitterInternalLanguage>;

    const TSLanguage* languagePointer;
    std::shared_ptr<const TreeSitterQuery> highlightsQuery;
    std::shared_ptr<const TreeSitterQuery> injectionsQuery;
    std::optional<TreeSitterIndentationScopes> indentationScopes;
};

} // namespace tessarine
