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

size_t qHash(const ListItemType& type, size_t seed) {
    return std::visit(PayloadHash{qHashMulti(seed, type.index())}, type);
}

} // namespace quillet
