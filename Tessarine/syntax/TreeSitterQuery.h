#pragma once

#include "Tessarine/syntax/TreeSitterPredicate.h"
#include "Tessarine/syntax/TreeSitterPredicateMapper.h"
#include "Tessarine/syntax/TreeSitterQueryError.h"

#include <cstdint>
#include <expected>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <tree_sitter/api.h>
#include <vector>

namespace tessarine {

// A compiled query for the trees of one language. It never changes. Thread: any number at once.
class TreeSitterQuery {
public:
    // Of the UTF-8 source only as many bytes are read as it has user-perceived characters: what is not ASCII
    // cuts its end off.
    static std::expected<std::shared_ptr<const TreeSitterQuery>, TreeSitterQueryError>
    create(std::string_view source, const TSLanguage* language);

    const TSQuery* pointer() const { return m_pointer.get(); }

    const TSLanguage* language() const { return m_language; }

    // The first predicate of the pattern, several times if it has more than one; see readPredicates.
    std::vector<TreeSitterPredicate> predicates(std::uint32_t patternIndex) const;

    // What they mean, worked out when it is first asked for.
    const TreeSitterPatternMeaning& meaning(std::uint32_t patternIndex) const;

    // Lives as long as the query.
    std::string_view captureName(std::uint32_t captureIndex) const;

    // How many parts the name has between its dots, empty ones not counted.
    std::int32_t nameComponentCount(std::uint32_t captureIndex) const {
        return m_nameComponentCounts[captureIndex];
    }

private:
    struct Delete {
        void operator()(TSQuery* query) const { ts_query_delete(query); }
    };

    struct LazyMeaning {
        std::once_flag isMapped;
        TreeSitterPatternMeaning meaning;
    };

    TreeSitterQuery(TSQuery* pointer, const TSLanguage* language);

    TreeSitterPredicate firstPredicate(const TSQueryPredicateStep* steps, std::uint32_t& stepCount) const;
    std::string stringValue(std::uint32_t id) const;

    std::unique_ptr<TSQuery, Delete> m_pointer;
    const TSLanguage* m_language;
    std::vector<std::int32_t> m_nameComponentCounts; // by capture
    std::unique_ptr<LazyMeaning[]> m_meanings;       // by pattern
};

} // namespace tessarine
