#pragma once

#include <QtCore/QHash>

#include <cstddef>
#include <memory>
#include <vector>

namespace platform {

class ManagedObject;

// The members of one relationship, in no particular order. Does not own them.
//
// Most sets have one member or a few, and a library has hundreds of thousands of sets: a short set is a bare
// array; a long one adds an index. Cost: O(1) for every call but iteration. An edit ends iterations.
class ObjectSet {
public:
    using const_iterator = std::vector<ManagedObject*>::const_iterator;

    bool contains(ManagedObject* object) const { return find(object) != notFound; }

    std::size_t size() const { return m_members.size(); }

    bool isEmpty() const { return m_members.empty(); }

    const_iterator begin() const { return m_members.begin(); }

    const_iterator end() const { return m_members.end(); }

    // For a loop that changes the relation.
    std::vector<ManagedObject*> toVector() const { return m_members; }

    // Adding a member that is there, or removing one that is not, changes nothing.
    void insert(ManagedObject* object) {
        if (contains(object)) return;
        m_members.push_back(object);
        if (m_index)
            m_index->insert(object, m_members.size() - 1);
        else if (m_members.size() > indexedFrom)
            buildIndex();
    }

    void remove(ManagedObject* object) {
        const std::size_t at = find(object);
        if (at == notFound) return;
        ManagedObject* last = m_members.back();
        m_members[at] = last;
        m_members.pop_back();
        if (!m_index) return;
        m_index->insert(last, at);
        m_index->remove(object);
    }

private:
    static constexpr std::size_t notFound = static_cast<std::size_t>(-1);
    static constexpr std::size_t indexedFrom = 16;

    std::size_t find(ManagedObject* object) const {
        if (m_index) return m_index->value(object, notFound);
        for (std::size_t i = 0; i < m_members.size(); ++i)
            if (m_members[i] == object) return i;
        return notFound;
    }

    void buildIndex() {
        m_index = std::make_unique<QHash<ManagedObject*, std::size_t>>();
        for (std::size_t i = 0; i < m_members.size(); ++i)
            m_index->insert(m_members[i], i);
    }

    std::vector<ManagedObject*> m_members;
    std::unique_ptr<QHash<ManagedObject*, std::size_t>> m_index; // from indexedFrom members on, for good
};

} // namespace platform
