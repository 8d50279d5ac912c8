#include "Tessarine/document/UnicodeText.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>
#include <memory>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

// Windows begin at multiples of this, but take a surrogate pair whole at either end.
constexpr std::int64_t windowUnits = 512;

using Window = char16_t[windowUnits + 2];

const TextSnapshot& snapshotOf(const UText* text) {
    return *static_cast<const TextSnapshot*>(text->context);
}

bool splitsPair(const TextSnapshot& text, std::int64_t index) {
    return index > 0 && index < text.length() && U16_IS_TRAIL(text.characterAt(index)) &&
           U16_IS_LEAD(text.characterAt(index - 1));
}

void fillWindow(UText* text, std::int64_t index) {
    const TextSnapshot& snapshot = snapshotOf(text);
    std::int64_t start = index - index % windowUnits;
    std::int64_t limit = std::min(start + windowUnits, snapshot.length());
    if (splitsPair(snapshot, start)) --start;
    if (splitsPair(snapshot, limit)) ++limit;
    snapshot.copy(start, limit - start, *static_cast<Window*>(text->pExtra));
    text->chunkNativeStart = start;
    text->chunkNativeLimit = limit;
    text->chunkLength = text->nativeIndexingLimit = static_cast<std::int32_t>(limit - start);
}

UBool accessText(UText* text, std::int64_t index, UBool forward) {
    const std::int64_t length = snapshotOf(text).length();
    index = std::clamp<std::int64_t>(index, 0, length);
    // At either end of the text, its last or first window.
    const std::int64_t needed = forward ? std::min(index, length - 1) : std::max<std::int64_t>(index - 1, 0);
    if (length > 0 && (needed < text->chunkNativeStart || needed >= text->chunkNativeLimit))
        fillWindow(text, needed);
    text->chunkOffset = static_cast<std::int32_t>(index - text->chunkNativeStart);
    return forward ? index < length : index > 0;
}

std::int64_t nativeLength(UText* text) {
    return snapshotOf(text).length();
}

std::int32_t extractText(UText* text, std::int64_t start, std::int64_t limit, char16_t* destination,
                         std::int32_t capacity, UErrorCode* status) {
    if (U_FAILURE(*status)) return 0;
    if (capacity < 0 || (!destination && capacity > 0) || start > limit) {
        *status = U_ILLEGAL_ARGUMENT_ERROR;
        return 0;
    }
    const TextSnapshot& snapshot = snapshotOf(text);
    start = std::clamp<std::int64_t>(start, 0, snapshot.length());
    limit = std::clamp<std::int64_t>(limit, 0, snapshot.length());
    if (splitsPair(snapshot, start)) --start;
    if (splitsPair(snapshot, limit)) ++limit;
    const std::int64_t length = limit - start;
    snapshot.copy(start, std::min<std::int64_t>(length, capacity), destination);
    accessText(text, limit, true);
    if (length < capacity)
        destination[length] = 0;
    else
        *status = length == capacity ? U_STRING_NOT_TERMINATED_WARNING : U_BUFFER_OVERFLOW_ERROR;
    return static_cast<std::int32_t>(length);
}

UText* cloneText(UText* destination, const UText* source, UBool isDeep, UErrorCode* status);

void closeText(UText* text) {
    const std::unique_ptr<const TextSnapshot> snapshot(&snapshotOf(text));
    text->context = nullptr;
}

constexpr UTextFuncs functions{sizeof(UTextFuncs),
                               0,
                               0,
                               0,
                               cloneText,
                               nativeLength,
                               accessText,
                               extractText,
                               nullptr, // replace: read-only
                               nullptr, // copy: read-only
                               nullptr, // native indexes are those of UTF-16
                               nullptr,
                               closeText,
                               nullptr,
                               nullptr,
                               nullptr};

// ICU holds the snapshot by a plain pointer, which closeText takes back.
UText* openText(UText* destination, const TextSnapshot& snapshot, UErrorCode* status) {
    auto owned = std::make_unique<const TextSnapshot>(snapshot);
    UText* text = utext_setup(destination, sizeof(Window), status);
    if (U_FAILURE(*status)) return nullptr;
    text->pFuncs = &functions;
    text->context = owned.release();
    text->chunkContents = *static_cast<Window*>(text->pExtra);
    return text;
}

// A deep clone is the same: a snapshot never changes.
UText* cloneText(UText* destination, const UText* source, UBool, UErrorCode* status) {
    if (U_FAILURE(*status)) return nullptr;
    UText* text = openText(destination, snapshotOf(source), status);
    if (text) accessText(text, source->chunkNativeStart + source->chunkOffset, true);
    return text;
}

} // namespace

UnicodeText::UnicodeText(const TextSnapshot& text) {
    UErrorCode status = U_ZERO_ERROR;
    openText(&m_text, text, &status);
    if (U_FAILURE(status)) fatalError("ICU can not open a text.");
}

UnicodeText::~UnicodeText() {
    utext_close(&m_text);
}

} // namespace tessarine
