#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/InternalLanguageMode.h"

#include <memory>

namespace tessarine {

// The objects that make up one document and are kept in step by its edits. None is null.
struct EditedDocument {
    std::shared_ptr<StringView> stringView;
    std::shared_ptr<LineManager> lineManager;
    std::shared_ptr<InternalLanguageMode> languageMode;

    // Of no text and no language.
    static EditedDocument empty();
};

// The location brought into the text, then the length. A negative length reaches back from the location.
TextRange rangeInText(const TextRange& range, const StringView& text);

} // namespace tessarine
