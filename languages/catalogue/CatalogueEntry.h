#pragma once

#include "languages/catalogue/Language.h"

#include <span>
#include <string_view>

namespace tessarine {
struct TreeSitterIndentationScopes;
}

namespace tessarine::languages {

// What a language of the catalogue is made of.
struct CatalogueEntry {
    Language language;
    std::string_view name;
    std::string_view grammar;
    std::string_view bundle;
    std::string_view highlights;                               // files of the bundle without their extension
    std::string_view injections;                               // empty where nothing is injected
    const TreeSitterIndentationScopes* (*indentationScopes)(); // null where there are none
};

// All of them, in the order of Language.
std::span<const CatalogueEntry> catalogueEntries();

const CatalogueEntry& entryOf(Language language);

// The grammar of what stands in a line of Markdown, whose own only knows blocks. Markdown injects it; it is
// no language of a document.
const CatalogueEntry& markdownInlineEntry();

} // namespace tessarine::languages
