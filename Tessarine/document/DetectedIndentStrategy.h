#pragma once

#include <cstdint>
#include <variant>

namespace tessarine {

// What a text turned out to be indented with.
class DetectedIndentStrategy {
public:
    struct Space {
        std::int64_t length; // spaces of one indent

        friend bool operator==(const Space&, const Space&) = default;
    };

    struct Tab {
        friend bool operator==(const Tab&, const Tab&) = default;
    };

    struct Unknown {
        friend bool operator==(const Unknown&, const Unknown&) = default;
    };

    static DetectedIndentStrategy space(std::int64_t length) { return DetectedIndentStrategy(Space{length}); }

    static DetectedIndentStrategy tab() { return DetectedIndentStrategy(Tab{}); }

    static DetectedIndentStrategy unknown() { return DetectedIndentStrategy(Unknown{}); }

    const std::variant<Space, Tab, Unknown>& kind() const { return m_kind; }

    friend bool operator==(const DetectedIndentStrategy&, const DetectedIndentStrategy&) = default;

private:
    explicit DetectedIndentStrategy(std::variant<Space, Tab, Unknown> kind)
        : m_kind(kind) {}

    std::variant<Space, Tab, Unknown> m_kind;
};

} // namespace tessarine
