#include "Tessarine/document/search/Characters.h"

#include "Tessarine/document/CharacterBoundaries.h"
#include "Tessarine/document/TextStore.h"

namespace tessarine {

std::vector<std::u16string_view> charactersOf(std::u16string_view text) {
    const TextStore store(text);
    CharacterBoundaries boundaries(store.text());
    std::vector<std::u16string_view> characters;
    for (std::int64_t start = 0; start < store.length();) {
        const std::int64_t limit = boundaries.after(start);
        characters.push_back(
            text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(limit - start)));
        start = limit;
    }
    return characters;
}

std::size_t firstCharacterLength(std::u16string_view text) {
    const TextStore store(text);
    return static_cast<std::size_t>(CharacterBoundaries(store.text()).after(0));
}

} // namespace tessarine
