#include "Tessarine/view/interaction/SurroundingText.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"

#include <QtCore/QChar>

#include <algorithm>

namespace tessarine {

namespace {

// The start stays where it is while the caret moves a little, as the input method's offsets count from there.
constexpr std::int64_t block = 512;

bool splitsCharacter(const StringView& text, std::int64_t location) {
    return location > 0 && location < text.length() && QChar::isLowSurrogate(text.characterAt(location));
}

std::int64_t startFor(const StringView& text, std::int64_t caret) {
    const std::int64_t start = std::max<std::int64_t>(0, (caret / block - 1) * block);
    return splitsCharacter(text, start) ? start + 1 : start;
}

std::int64_t limitFor(const StringView& text, std::int64_t caret) {
    const std::int64_t limit = std::min(text.length(), caret + block);
    return splitsCharacter(text, limit) ? limit - 1 : limit;
}

} // namespace

SurroundingText::SurroundingText(TextView& textView) {
    const StringView& text = *textView.document().stringView;
    const SelectionMovement& movement = textView.movement();
    const TextRange own = textView.markedRange().value_or(TextRange{.location = movement.head()});
    const std::int64_t other = textView.markedRange() ? own.location : movement.anchor();
    caret = own.location;
    start = startFor(text, caret);
    const std::int64_t limit = limitFor(text, own.limit());
    before = toQt(text.substring(start, caret - start));
    after = toQt(text.substring(own.limit(), limit - own.limit()));
    anchor = static_cast<int>(std::clamp(other, start, limit) - start);
}

} // namespace tessarine
