#pragma once

#include <string>

namespace tessarine {

// Why a search has no result.
struct SearchError {
    enum class Kind {
        invalidPattern,
        timeLimit,  // the regular expression would run for ever, or as good as that
        stackLimit, // it remembers more places to come back to than it may
        cancelled,
        failed, // whatever else ICU reports
    };

    Kind kind;
    std::string message; // a sentence for a log

    friend bool operator==(const SearchError&, const SearchError&) = default;
};

} // namespace tessarine
