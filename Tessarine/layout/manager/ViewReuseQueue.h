#pragma once

#include <concepts>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tessarine {

// Views by what they show, and a pool of those that show nothing: rows come and go while the user scrolls,
// views are made only for as many as are on screen at once.
//
// A View type is made without arguments, can be removed from its superview, and has prepareForReuse().
// Invariant: a view is visible under one key or queued, never both.
template <class Key, class ViewType>
class ViewReuseQueue {
public:
    using Views = std::unordered_map<Key, std::shared_ptr<ViewType>>;
    using Keys = std::unordered_set<Key>;

    const Views& visibleViews() const { return m_visibleViews; }

    std::size_t queuedViewCount() const { return m_queuedViews.size(); }

    // The view that shows it, else one from the pool, else a new one. Never null; visible from now on.
    const std::shared_ptr<ViewType>& dequeueView(const Key& key) {
        const auto [entry, isNew] = m_visibleViews.try_emplace(key);
        if (isNew) entry->second = takeQueuedOrNew();
        return entry->second;
    }

    // Back to the pool, and off the screen. Keys without a view are passed over.
    void enqueueViews(const Keys& keys) {
        for (const Key& key : keys) {
            const auto entry = m_visibleViews.find(key);
            if (entry == m_visibleViews.end()) continue;
            enqueue(std::move(entry->second));
            m_visibleViews.erase(entry);
        }
    }

    // All whose key is not among these.
    void enqueueViewsExcept(const Keys& keys) {
        std::erase_if(m_visibleViews, [&](auto& entry) {
            if (keys.contains(entry.first)) return false;
            enqueue(std::move(entry.second));
            return true;
        });
    }

private:
    std::shared_ptr<ViewType> takeQueuedOrNew() {
        if (m_queuedViews.empty()) return std::make_shared<ViewType>();
        auto view = std::move(m_queuedViews.back());
        m_queuedViews.pop_back();
        return view;
    }

    void enqueue(std::shared_ptr<ViewType> view) {
        view->prepareForReuse();
        view->removeFromSuperview();
        m_queuedViews.push_back(std::move(view));
    }

    Views m_visibleViews;
    std::vector<std::shared_ptr<ViewType>> m_queuedViews;
};

} // namespace tessarine
