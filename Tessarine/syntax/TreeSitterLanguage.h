#pragma once

#include "Tessarine/syntax/TreeSitterInternalLanguage.h"

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <tree_sitter/api.h>

namespace tessarine {

// A grammar as embedding code describes it. Thread: any, once it is made.
class TreeSitterLanguage {
public:
    // The source of a query.
    class Query {
    public:
        explicit Query(std::string string)
            : m_string(std::move(string)) {}

        // A file that cannot be read has no text.
        static Query contentsOf(const std::filesystem::path& file);

        const std::optional<std::string>& string() const { return m_string; }

    private:
        Query() = default;

        std::optional<std::string> m_string;
    };

    explicit TreeSitterLanguage(const TSLanguage* languagePointer,
                                std::optional<Query> highlightsQuery = std::nullopt,
                                std::optional<Query> injectionsQuery = std::nullopt,
                                std::optional<TreeSitterIndentationScopes> indentationScopes = std::nullopt);

    const TSLanguage* languagePointer() const { return m_languagePointer; }

    const std::optional<Query>& highlightsQuery() const { return m_highlightsQuery; }

    const std::optional<Query>& injectionsQuery() const { return m_injectionsQuery; }

    const std::optional<TreeSitterIndentationScopes>& indentationScopes() const {
        return m_indentationScopes;
    }

    // Compiles the queries when it is first asked for: some milliseconds. One that does not compile is left
    // out. Never null.
    const TreeSitterInternalLanguage::Reference& internalLanguage() const;

private:
    const TSLanguage* m_languagePointer;
    std::optional<Query> m_highlightsQuery;
    std::optional<Query> m_injectionsQuery;
    std::optional<TreeSitterIndentationScopes> m_indentationScopes;

    mutable std::once_flag m_isPrepared; // guards what follows
    mutable TreeSitterInternalLanguage::Reference m_internalLanguage;
};

} // namespace tessarine
