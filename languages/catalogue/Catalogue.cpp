#include "languages/catalogue/Catalogue.h"

#include "Tessarine/base/FatalError.h"
#include "languages/catalogue/CatalogueEntry.h"
#include "languages/catalogue/QueryBundles.h"
#include "languages/grammars/Grammars.h"

#include <mutex>
#include <string>
#include <vector>

namespace tessarine::languages {

namespace {

using Query = TreeSitterLanguage::Query;

std::optional<Query> query(std::string_view bundle, std::string_view name) {
    if (name.empty()) return std::nullopt;
    return Query::contentsOf(queryFile(bundle, name));
}

std::shared_ptr<const TreeSitterLanguage> made(const CatalogueEntry& entry) {
    const TSLanguage* const grammar = grammarNamed(entry.grammar);
    if (!grammar) fatalError("unable to find grammar named " + std::string(entry.grammar));
    std::optional<TreeSitterIndentationScopes> scopes;
    if (entry.indentationScopes) scopes = *entry.indentationScopes();
    return std::make_shared<const TreeSitterLanguage>(grammar, query(entry.bundle, entry.highlights),
                                                      query(entry.bundle, entry.injections),
                                                      std::move(scopes));
}

class KeptLanguage {
public:
    const std::shared_ptr<const TreeSitterLanguage>& get(const CatalogueEntry& entry) {
        std::call_once(m_isMade, [&] { m_language = made(entry); });
        return m_language;
    }

private:
    std::once_flag m_isMade;
    std::shared_ptr<const TreeSitterLanguage> m_language;
};

} // namespace

std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(Language language) {
    static std::vector<KeptLanguage> kept(catalogueEntries().size());
    return kept[static_cast<std::size_t>(language)].get(entryOf(language));
}

std::shared_ptr<const TreeSitterLanguage> markdownInlineLanguage() {
    static KeptLanguage kept;
    return kept.get(markdownInlineEntry());
}

} // namespace tessarine::languages
