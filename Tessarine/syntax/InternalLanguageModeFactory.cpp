#include "Tessarine/syntax/InternalLanguageModeFactory.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/syntax/PlainTextInternalLanguageMode.h"
#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"

#include <string>
#include <typeinfo>

namespace tessarine {

std::shared_ptr<InternalLanguageMode>
InternalLanguageModeFactory::internalLanguageMode(const LanguageMode& languageMode,
                                                  std::shared_ptr<const StringView> stringView,
                                                  std::shared_ptr<LineManager> lineManager) const {
    if (dynamic_cast<const PlainTextLanguageMode*>(&languageMode))
        return std::make_shared<PlainTextInternalLanguageMode>();
    if (const auto* treeSitter = dynamic_cast<const TreeSitterLanguageMode*>(&languageMode))
        return TreeSitterInternalLanguageMode::create(*treeSitter, std::move(stringView),
                                                      std::move(lineManager), m_mainExecutor);
    fatalError(std::string(typeid(languageMode).name()) + " is not a supported language mode");
}

} // namespace tessarine
