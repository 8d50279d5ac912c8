#include "Tessarine/editing/EditedDocument.h"

#include "Tessarine/syntax/PlainTextInternalLanguageMode.h"

#include <algorithm>

namespace tessarine {

EditedDocument EditedDocument::empty() {
    auto stringView = std::make_shared<StringView>();
    auto lineManager = std::make_shared<LineManager>(stringView);
    return {std::move(stringView), std::move(lineManager), std::make_shared<PlainTextInternalLanguageMode>()};
}

// No sum is taken: ranges come from outside, and any number may stand in them.
TextRange rangeInText(const TextRange& range, const StringView& text) {
    const std::int64_t location = std::clamp<std::int64_t>(range.location, 0, text.length());
    if (range.length >= 0) return {location, std::min(range.length, text.length() - location)};
    const std::int64_t back = range.length < -location ? location : -range.length;
    return {location - back, back};
}

} // namespace tessarine
