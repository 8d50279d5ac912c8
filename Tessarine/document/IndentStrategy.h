#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace tessarine {

// What one indent is written as.
class IndentStrategy {
public:
    // One tab character, drawn as wide as `length` spaces.
    struct Tab {
        std::int64_t length;

        friend bool operator==(const Tab&, const Tab&) = default;
    };

    // `length` spaces.
    struct Space {
        std::int64_t length;

        friend bool operator==(const Space&, const Space&) = default;
    };

    static IndentStrategy tab(std::int64_t length) { return IndentStrategy(Tab{length}); }

    static IndentStrategy space(std::int64_t length) { return IndentStrategy(Space{length}); }

    const std::variant<Tab, Space>& kind() const { return m_kind; }

    // The characters of one indent.
    std::int64_t tabLength() const;

    // The characters of so many indents.
    std::u16string string(std::int64_t indentLevel) const;

    friend bool operator==(const IndentStrategy&, const IndentStrategy&) = default;

private:
    explicit IndentStrategy(std::variant<Tab, Space> kind)
        : m_kind(kind) {}

    std::variant<Tab, Space> m_kind;
};

} // namespace tessarine
