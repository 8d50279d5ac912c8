#include "Tessarine/syntax/TreeSitterIndentationScopes.h"

namespace tessarine {

namespace {

std::string list(const std::vector<std::string>& names) {
    std::string text = "[";
    for (const std::string& name : names)
        text += (&name == names.data() ? "" : ", ") + name;
    return text + "]";
}

} // namespace

std::string TreeSitterIndentationScopes::debugDescription() const {
    return "[TreeSitterIndentationScopes indent=" + list(indent) + " inheritIndent=" + list(inheritIndent) +
           " outdent=" + list(outdent) +
           " whitespaceDenotesBlocks=" + (whitespaceDenotesBlocks ? "true" : "false") + "]";
}

} // namespace tessarine
