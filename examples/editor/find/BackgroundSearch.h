#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/search/SearchError.h"
#include "Tessarine/document/search/SearchQuery.h"
#include "examples/editor/files/BackgroundWork.h"
#include "examples/editor/find/MatchList.h"

#include <cstddef>
#include <expected>
#include <functional>
#include <stop_token>

namespace tessarine::editor {

struct FoundMatches {
    MatchList matches;
    bool isAll = true; // there are no more than those
};

// More are not listed: a list of so many is of no use, and takes memory.
inline constexpr std::size_t matchLimit = 1'000'000;

// All matches in a text, found beside the main thread by one search at a time. Main thread.
class BackgroundSearch {
public:
    using Result = std::expected<FoundMatches, SearchError>;

    explicit BackgroundSearch(std::shared_ptr<MainExecutor> mainExecutor)
        : m_work("search", std::move(mainExecutor)) {}

    ~BackgroundSearch() { cancel(); }

    BackgroundSearch(const BackgroundSearch&) = delete;
    BackgroundSearch& operator=(const BackgroundSearch&) = delete;

    // Cancels the one before. The completion comes later, and not at all if this one is cancelled.
    void start(const TextSnapshot& text, const SearchQuery& query,
               std::function<void(const Result&)> completion);

    void cancel() { m_stop.request_stop(); }

private:
    std::stop_source m_stop;
    QObject m_receiver;
    BackgroundWork m_work;
};

// What the search does. Any thread.
BackgroundSearch::Result findMatches(const TextSnapshot& text, const SearchQuery& query, std::stop_token stop,
                                     std::size_t limit = matchLimit);

} // namespace tessarine::editor
