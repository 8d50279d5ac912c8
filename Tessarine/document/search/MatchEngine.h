#pragma once

#include "Tessarine/document/search/SearchError.h"
#include "Tessarine/document/search/SearchMatch.h"

#include <expected>
#include <optional>

namespace tessarine {

// A way to find matches one by one, in document order, none of them empty.
class MatchEngine {
public:
    using Next = std::expected<std::optional<SearchMatch>, SearchError>;

    virtual ~MatchEngine() = default;

    // The next match, or nothing at the end of the text. After an error it is not to be asked again.
    virtual Next next() = 0;

    // What an engine answers once its stop token has been told.
    static Next cancelled() {
        return std::unexpected(SearchError{SearchError::Kind::cancelled, "The search was cancelled."});
    }
};

} // namespace tessarine
