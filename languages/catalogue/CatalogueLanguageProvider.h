#pragma once

#include "Tessarine/syntax/TreeSitterLanguageProvider.h"

namespace tessarine::languages {

// Finds the languages of the catalogue by all their names.
class CatalogueLanguageProvider final : public TreeSitterLanguageProvider {
public:
    std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view name) const override;
};

} // namespace tessarine::languages
