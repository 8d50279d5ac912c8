#include "examples/editor/window/BracketPairs.h"

#include <memory>

namespace tessarine::editor {

namespace {

class BracketPair final : public CharacterPair {
public:
    BracketPair(char16_t leading, char16_t trailing)
        : m_leading(leading)
        , m_trailing(trailing) {}

    std::u16string leading() const override { return {m_leading}; }

    std::u16string trailing() const override { return {m_trailing}; }

private:
    const char16_t m_leading;
    const char16_t m_trailing;
};

} // namespace

CharacterPairs::List bracketPairs() {
    return {std::make_shared<BracketPair>(u'(', u')'), std::make_shared<BracketPair>(u'[', u']'),
            std::make_shared<BracketPair>(u'{', u'}'), std::make_shared<BracketPair>(u'"', u'"')};
}

} // namespace tessarine::editor
