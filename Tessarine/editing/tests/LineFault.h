#pragma once

#include "Tessarine/editing/EditedDocument.h"

#include <optional>
#include <string>

namespace tessarine {

// Where the lines of a document are broken or not those of its text made anew, or nothing. A line that was
// edited counts the separators beyond CR and LF as no delimiter, so these are not compared.
inline std::optional<std::string> lineFault(const EditedDocument& document) {
    if (auto fault = document.lineManager->check()) return fault;
    LineManager fresh(document.stringView);
    fresh.rebuild();
    if (fresh.lineCount() != document.lineManager->lineCount()) return "the line count differs";
    auto lines = document.lineManager->documentLineTree().iterator();
    auto freshLines = fresh.documentLineTree().iterator();
    while (const DocumentLineNode* expected = freshLines.next()) {
        const DocumentLineNode* line = lines.next();
        const std::string row = " differs in row " + std::to_string(expected->index());
        if (line->value() != expected->value()) return "the length" + row;
        if (line->data().byteCount() != expected->data().byteCount()) return "the byte count" + row;
        const char16_t last = line->value() == 0
                                  ? u' '
                                  : document.stringView->characterAt(line->location() + line->value() - 1);
        const bool isSeparator = last != u'\r' && last != u'\n';
        if (!isSeparator && line->data().delimiterLength() != expected->data().delimiterLength())
            return "the delimiter" + row;
    }
    return std::nullopt;
}

} // namespace tessarine
