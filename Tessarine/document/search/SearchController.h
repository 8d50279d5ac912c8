#pragma once

#include "Tessarine/document/LinePosition.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/document/search/ParsedReplacementString.h"
#include "Tessarine/document/search/SearchQuery.h"
#include "Tessarine/document/search/SearchResult.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarine {

class SearchControllerDelegate {
public:
    virtual ~SearchControllerDelegate() = default;

    virtual std::optional<LinePosition> linePosition(std::int64_t location) const = 0;
};

// Searches a document in one call, with the lines of each match. What has no lines is left out: without a
// delegate there are no results. A search that fails has none either, and a line on the console.
// Thread: the document's. A few matches at a time, or on another thread: MatchFinder.
class SearchController {
public:
    explicit SearchController(std::shared_ptr<const StringView> stringView)
        : m_stringView(std::move(stringView)) {}

    void setDelegate(std::weak_ptr<const SearchControllerDelegate> delegate) {
        m_delegate = std::move(delegate);
    }

    std::vector<SearchResult> search(const SearchQuery& query) const;

    // With what replaces each match; how the string is understood: replacementFor in ReplaceAll.h.
    std::vector<SearchReplaceResult> search(const SearchQuery& query,
                                            std::u16string_view replacementString) const;
    std::vector<SearchReplaceResult> search(const SearchQuery& query,
                                            const ParsedReplacementString& replacement) const;

private:
    // Calls the body with each match that has lines, its result and the text.
    template <class Body>
    void forEachResult(const SearchQuery& query, Body&& body) const;

    std::shared_ptr<const StringView> m_stringView;
    std::weak_ptr<const SearchControllerDelegate> m_delegate;
};

} // namespace tessarine
