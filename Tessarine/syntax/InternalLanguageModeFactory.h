#pragma once

#include "Tessarine/base/MainExecutor.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/InternalLanguageMode.h"
#include "Tessarine/syntax/LanguageMode.h"

#include <memory>

namespace tessarine {

// Makes what knows the language of one document.
class InternalLanguageModeFactory {
public:
    // The executor takes what the modes' background work gives back.
    explicit InternalLanguageModeFactory(std::shared_ptr<MainExecutor> mainExecutor)
        : m_mainExecutor(std::move(mainExecutor)) {}

    // A mode that is none of the engine's own stops the program.
    std::shared_ptr<InternalLanguageMode>
    internalLanguageMode(const LanguageMode& languageMode, std::shared_ptr<const StringView> stringView,
                         std::shared_ptr<LineManager> lineManager) const;

private:
    std::shared_ptr<MainExecutor> m_mainExecutor;
};

} // namespace tessarine
