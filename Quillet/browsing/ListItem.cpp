#include "Quillet/browsing/ListItem.h"

#include <QtCore/QHash>

namespace quillet {

namespace {

struct PayloadHash {
    size_t seed;

    size_t operator()(const SectionHeader& header) const {
        return qHashMulti(seed, header.text, header.systemImage);
    }

    size_t operator()(const LanguageHeader& header) const {
        size_t hash = ::qHash(header.language, seed);
        for (const auto& snippet : header.snippets)
            hash = qHashMulti(hash, snippet.get());
        return hash;
    }

    template <typename T>
    size_t operator()(const std::shared_ptr<T>& object) const {
        return ::qHash(object.get(), seed);
    }
};

} // namespace

const std::optional<ListItem::Children>& ListItem::children() const {
    if (m_children || !m_leaves) return m_children;
    m_children.emplace();
    m_children->reserve(m_leaves->size());
    for (std::size_t place = 0; place < m_leaves->size(); ++place)
        m_children->push_back(std::make_shared<ListItem>(m_leaves->at(place)));
    return m_children;
}

size_t qHash(const ListItemType& type, size_t seed) {
    return std::visit(PayloadHash{qHashMulti(seed, type.index())}, type);
}

} // namespace quillet
