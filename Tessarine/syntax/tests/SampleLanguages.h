#pragma once

#include "Tessarine/syntax/TreeSitterLanguageProvider.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tessarine {

// The grammars of the build with small queries of the tests' own. Names are those under which the queries
// inject: "javascript", "jsdoc", "regex", "html", "css", "markdown", "markdown_inline", "c".
class SampleLanguages : public TreeSitterLanguageProvider {
public:
    static std::shared_ptr<const SampleLanguages> shared();

    std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view name) const override;

    // Languages of a test's own.
    void add(const std::string& name, std::shared_ptr<const TreeSitterLanguage> language) {
        m_languages[name] = std::move(language);
    }

private:
    std::map<std::string, std::shared_ptr<const TreeSitterLanguage>, std::less<>> m_languages;
};

std::shared_ptr<const TreeSitterLanguage> sampleLanguage(std::string_view grammar, std::string highlights,
                                                         std::string injections = "");

// The build's name for a grammar.
std::string_view grammarName(const TSLanguage* language);

} // namespace tessarine
