#pragma once

#include "Tessarine/view/QtTextShaper.h"

#include <memory>
#include <string_view>

namespace tessarine {

inline const Font sampleFont = Font::monospacedSystem(14);

// In one font and colour.
inline std::shared_ptr<AttributedString> sampleString(std::u16string_view text) {
    auto string = std::make_shared<AttributedString>(text);
    string->addAttributes(
        {.foregroundColor = Color(RGBAColor::ofHex(0x000000)), .font = sampleFont, .defaultTabInterval = 40},
        {.location = 0, .length = string->length()});
    return string;
}

inline std::shared_ptr<const TextLine> sampleRow(std::shared_ptr<const AttributedString> string) {
    const TextRange whole{.location = 0, .length = string->length()};
    return QtTextShaper().createTypesetter(std::move(string))->createLine(whole);
}

inline std::shared_ptr<const TextLine> sampleRow(std::u16string_view text) {
    return sampleRow(sampleString(text));
}

} // namespace tessarine
