#pragma once

#include <string>

namespace tessarine {

// Two texts that come together, such as brackets or quotes. One with an empty component is never typed.
class CharacterPair {
public:
    CharacterPair() = default;
    CharacterPair(const CharacterPair&) = delete;
    CharacterPair& operator=(const CharacterPair&) = delete;
    virtual ~CharacterPair() = default;

    virtual std::u16string leading() const = 0;
    virtual std::u16string trailing() const = 0;
};

// What happens to the trailing component when the leading one is deleted.
enum class CharacterPairTrailingComponentDeletionMode {
    disabled,
    immediatelyFollowingLeadingComponent // it goes as well if it stands directly behind
};

} // namespace tessarine
