#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/search/BatchReplaceSet.h"
#include "Tessarine/document/search/ParsedReplacementString.h"
#include "Tessarine/document/search/SearchError.h"
#include "Tessarine/document/search/SearchQuery.h"

#include <expected>
#include <stop_token>
#include <string_view>

namespace tessarine {

// How a replacement string is understood: as a template if the query is a regular expression and the template
// has a placeholder, else as it is typed, backslashes and all.
ParsedReplacementString replacementFor(const SearchQuery& query, std::u16string_view replacement);

// What replaces each match of a query. Any thread.
std::expected<BatchReplaceSet, SearchError> replacementsOfAll(const TextSnapshot& text,
                                                              const SearchQuery& query,
                                                              const ParsedReplacementString& replacement,
                                                              std::stop_token stop = {});

} // namespace tessarine
