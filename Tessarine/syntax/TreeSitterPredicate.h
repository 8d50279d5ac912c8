#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tessarine {

// A predicate of a pattern as it stands in the query: `(#name? step step)`.
struct TreeSitterPredicate {
    struct Capture {
        std::uint32_t index;

        friend bool operator==(const Capture&, const Capture&) = default;
    };

    using Step = std::variant<Capture, std::string>;

    std::string name;
    std::vector<Step> steps;

    std::string debugDescription() const;

    friend bool operator==(const TreeSitterPredicate&, const TreeSitterPredicate&) = default;
};

std::string debugDescription(const TreeSitterPredicate::Step& step);

} // namespace tessarine
