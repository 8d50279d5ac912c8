#pragma once

#include "Tessarine/syntax/TreeSitterLanguage.h"
#include "languages/catalogue/Language.h"

#include <memory>

namespace tessarine::languages {

// The language with its queries and scopes: made at first use and kept. Thread: any.
// A missing grammar or query file stops the program.
std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(Language language);

// See markdownInlineEntry().
std::shared_ptr<const TreeSitterLanguage> markdownInlineLanguage();

} // namespace tessarine::languages
