#pragma once

#include "Tessarine/syntax/TreeSitterLanguageProvider.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tessarine {

// A few grammars with queries that give something to each of the colours that themes have.
class GalleryLanguages final : public TreeSitterLanguageProvider {
public:
    GalleryLanguages();

    std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view name) const override;

private:
    std::map<std::string, std::shared_ptr<const TreeSitterLanguage>, std::less<>> m_languages;
};

} // namespace tessarine
