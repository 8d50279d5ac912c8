#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterCapture.h"
#include "Tessarine/syntax/TreeSitterInjectedLanguage.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessarine {

// Reads the captures of an injections query: a capture "language" names the language of the capture "content"
// behind it; any other capture is content itself, in the language that its pattern sets as
// "injection.language" or else that the capture is named after. Borrows the text; for one run.
class TreeSitterInjectedLanguageMapper {
public:
    explicit TreeSitterInjectedLanguageMapper(const TextSnapshot& text)
        : m_text(text) {}

    std::vector<TreeSitterInjectedLanguage> map(std::span<const TreeSitterCapture> captures);

private:
    void addContent(const TreeSitterCapture& capture, std::optional<std::string> languageName);

    const TextSnapshot& m_text;
    std::optional<std::string> m_languageNamePendingContent;
    std::vector<TreeSitterInjectedLanguage> m_injectedLanguages;
};

} // namespace tessarine
