#pragma once

#include "Tessarine/syntax/LanguageMode.h"
#include "Tessarine/syntax/TreeSitterLanguage.h"
#include "Tessarine/syntax/TreeSitterLanguageProvider.h"

#include <chrono>
#include <memory>
#include <optional>

namespace tessarine {

// A grammar, and whoever knows the languages that it injects (may be null).
class TreeSitterLanguageMode final : public LanguageMode {
public:
    explicit TreeSitterLanguageMode(std::shared_ptr<const TreeSitterLanguage> language,
                                    std::shared_ptr<const TreeSitterLanguageProvider> languageProvider = {})
        : m_language(std::move(language))
        , m_languageProvider(std::move(languageProvider)) {}

    const std::shared_ptr<const TreeSitterLanguage>& language() const { return m_language; }

    const std::shared_ptr<const TreeSitterLanguageProvider>& languageProvider() const {
        return m_languageProvider;
    }

    // How long an edit may parse on the thread that makes it. One that would take longer goes on in the
    // background. Without a budget every edit is parsed at once, however long that takes.
    const std::optional<std::chrono::steady_clock::duration>& reparseBudget() const {
        return m_reparseBudget;
    }

    void setReparseBudget(std::optional<std::chrono::steady_clock::duration> budget) {
        m_reparseBudget = budget;
    }

private:
    std::shared_ptr<const TreeSitterLanguage> m_language;
    std::shared_ptr<const TreeSitterLanguageProvider> m_languageProvider;
    std::optional<std::chrono::steady_clock::duration> m_reparseBudget;
};

} // namespace tessarine
