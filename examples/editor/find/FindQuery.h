#pragma once

#include "Tessarine/document/search/ParsedReplacementString.h"
#include "Tessarine/document/search/SearchQuery.h"
#include "examples/editor/find/FindOptions.h"

#include <expected>

namespace tessarine::editor {

// As the engine searches for it. Error: a sentence that says what is wrong with the pattern.
std::expected<SearchQuery, QString> searchQuery(const FindOptions& options);

// What replaces a match. Error: a sentence that says what is wrong with the template.
std::expected<ParsedReplacementString, QString> replacementOf(const FindOptions& options,
                                                              const QString& replacement);

} // namespace tessarine::editor
