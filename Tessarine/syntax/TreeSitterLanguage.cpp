#include "Tessarine/syntax/TreeSitterLanguage.h"

#include <fstream>
#include <sstream>

namespace tessarine {

namespace {

std::shared_ptr<const TreeSitterQuery> compiled(const std::optional<TreeSitterLanguage::Query>& query,
                                                const TSLanguage* language) {
    if (!query || !query->string()) return nullptr;
    return TreeSitterQuery::create(*query->string(), language).value_or(nullptr);
}

} // namespace

TreeSitterLanguage::Query TreeSitterLanguage::Query::contentsOf(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {};
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream.is_open() || text.bad()) return {};
    return Query(std::move(text).str());
}

TreeSitterLanguage::TreeSitterLanguage(const TSLanguage* languagePointer,
                                       std::optional<Query> highlightsQuery,
                                       std::optional<Query> injectionsQuery,
                                       std::optional<TreeSitterIndentationScopes> indentationScopes)
    : m_languagePointer(languagePointer)
    , m_highlightsQuery(std::move(highlightsQuery))
    , m_injectionsQuery(std::move(injectionsQuery))
    , m_indentationScopes(std::move(indentationScopes)) {}

const TreeSitterInternalLanguage::Reference& TreeSitterLanguage::internalLanguage() const {
    std::call_once(m_isPrepared, [this] {
        m_internalLanguage = std::make_shared<const TreeSitterInternalLanguage>(
            TreeSitterInternalLanguage{.languagePointer = m_languagePointer,
                                       .highlightsQuery = compiled(m_highlightsQuery, m_languagePointer),
                                       .injectionsQuery = compiled(m_injectionsQuery, m_languagePointer),
                                       .indentationScopes = m_indentationScopes});
    });
    return m_internalLanguage;
}

} // namespace tessarine
