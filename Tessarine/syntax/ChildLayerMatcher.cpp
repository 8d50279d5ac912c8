#include "Tessarine/syntax/ChildLayerMatcher.h"

#include <utility>

namespace tessarine {

namespace {

// Starts and ends share one table.
std::int64_t startKey(const TreeSitterTextRange& range) {
    return range.startByte().value();
}

std::int64_t endKey(const TreeSitterTextRange& range) {
    return -1 - range.endByte().value();
}

} // namespace

ChildLayerMatcher::ChildLayerMatcher(std::size_t capacity) {
    m_entries.reserve(capacity);
    m_entryOfId.reserve(capacity);
}

void ChildLayerMatcher::add(const TreeSitterLanguageLayer::Child& child, const TreeSitterTextRange& range) {
    if (child.id) m_entryOfId.emplace(child.id, m_entries.size());
    m_entries.push_back({child.layer, range});
}

TreeSitterLanguageLayer::Reference ChildLayerMatcher::takeWithId(const void* id) {
    const auto found = m_entryOfId.find(id);
    return found == m_entryOfId.end() ? nullptr : std::exchange(m_entries[found->second].layer, nullptr);
}

TreeSitterLanguageLayer::Reference
ChildLayerMatcher::takeAtPlace(const TreeSitterTextRange& range,
                               const TreeSitterInternalLanguage::Reference& language) {
    indexPlaces();
    for (const std::int64_t key : {startKey(range), endKey(range)}) {
        const auto [first, last] = m_entriesAtPlace.equal_range(key);
        for (auto found = first; found != last; ++found) {
            TreeSitterLanguageLayer::Reference& layer = m_entries[found->second].layer;
            if (layer && layer->language() == language) return std::exchange(layer, nullptr);
        }
    }
    return nullptr;
}

void ChildLayerMatcher::indexPlaces() {
    if (std::exchange(m_hasPlaces, true)) return;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        if (!m_entries[i].layer) continue;
        m_entriesAtPlace.emplace(startKey(m_entries[i].range), i);
        m_entriesAtPlace.emplace(endKey(m_entries[i].range), i);
    }
}

std::vector<TreeSitterTextRange> ChildLayerMatcher::rangesOfRest() const {
    std::vector<TreeSitterTextRange> ranges;
    for (const Entry& entry : m_entries)
        if (entry.layer) ranges.push_back(entry.range);
    return ranges;
}

} // namespace tessarine
