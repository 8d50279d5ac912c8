#pragma once

#include "Tessarine/syntax/TreeSitterTextRange.h"

#include <string>

namespace tessarine {

// A stretch of the text that is written in another language.
struct TreeSitterInjectedLanguage {
    const void* id; // of the node that it was found on
    std::string languageName;
    TreeSitterTextRange textRange;
};

} // namespace tessarine
