#include "languages/catalogue/CatalogueLanguageProvider.h"

#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/LanguageNames.h"

namespace tessarine::languages {

std::shared_ptr<const TreeSitterLanguage>
CatalogueLanguageProvider::treeSitterLanguage(std::string_view name) const {
    if (name == "markdown_inline") return markdownInlineLanguage();
    const auto language = languageNamed(name);
    return language ? languages::treeSitterLanguage(*language) : nullptr;
}

} // namespace tessarine::languages
