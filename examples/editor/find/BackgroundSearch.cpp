#include "examples/editor/find/BackgroundSearch.h"

#include "Tessarine/document/search/MatchFinder.h"

namespace tessarine::editor {

void BackgroundSearch::start(const TextSnapshot& text, const SearchQuery& query,
                             std::function<void(const Result&)> completion) {
    cancel();
    m_stop = std::stop_source();
    const std::stop_token stop = m_stop.get_token();
    m_work.start(
        &m_receiver, [text, query, stop] { return findMatches(text, query, stop); },
        [completion = std::move(completion), stop](const Result& result) {
            if (!stop.stop_requested()) completion(result);
        });
}

BackgroundSearch::Result findMatches(const TextSnapshot& text, const SearchQuery& query, std::stop_token stop,
                                     std::size_t limit) {
    auto finder = MatchFinder::create(text, query, 0, std::move(stop));
    if (!finder) return std::unexpected(std::move(finder.error()));
    std::vector<TextRange> ranges;
    while (true) {
        auto match = finder->next();
        if (!match) return std::unexpected(std::move(match.error()));
        if (!*match) return FoundMatches{MatchList(std::move(ranges))};
        if (ranges.size() == limit) return FoundMatches{MatchList(std::move(ranges)), false};
        ranges.push_back((*match)->range);
    }
}

} // namespace tessarine::editor
