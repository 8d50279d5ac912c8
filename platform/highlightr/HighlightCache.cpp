#include "platform/highlightr/HighlightCache.h"

#include <algorithm>

namespace platform::highlight {

namespace {

qsizetype sizeOf(const Question& question, const HighlightedCode& answer) {
    constexpr qsizetype perEntry =
        1024; // what the rest of an entry may take, so that tiny ones are bounded too
    return perEntry + question.code.size() * 2 +
           static_cast<qsizetype>(answer.runs.capacity() * sizeof(HighlightedCode::Run));
}

} // namespace

std::shared_ptr<const HighlightedCode> HighlightCache::find(const Question& question) {
    const std::scoped_lock lock(m_mutex);
    const auto found = std::ranges::find(m_entries, question, &Entry::question);
    if (found == m_entries.end()) return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, found);
    return found->answer;
}

void HighlightCache::add(Question question, std::shared_ptr<const HighlightedCode> answer) {
    const qsizetype size = sizeOf(question, *answer);
    if (size > m_capacity) return;
    const std::scoped_lock lock(m_mutex);
    m_entries.push_front({std::move(question), std::move(answer), size});
    m_size += size;
    while (m_size > m_capacity || m_entries.size() > mostEntries) {
        m_size -= m_entries.back().size;
        m_entries.pop_back();
    }
}

} // namespace platform::highlight
