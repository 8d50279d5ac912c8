#pragma once

#include "Tessarine/syntax/TreeSitterLanguage.h"

#include <memory>
#include <string_view>

namespace tessarine {

// Knows languages by the names under which other languages inject them.
class TreeSitterLanguageProvider {
public:
    TreeSitterLanguageProvider() = default;
    TreeSitterLanguageProvider(const TreeSitterLanguageProvider&) = delete;
    TreeSitterLanguageProvider& operator=(const TreeSitterLanguageProvider&) = delete;
    virtual ~TreeSitterLanguageProvider() = default;

    // Null for a name that it does not know; names come out of documents. Any thread, several at once.
    virtual std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view name) const = 0;
};

} // namespace tessarine
