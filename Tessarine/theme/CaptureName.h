#pragma once

#include <optional>
#include <string_view>

namespace tessarine {

// What `find` gives for the name of a capture, else for the name without its last part, and so on until it
// gives something. `find` takes a name and gives an optional.
template <class Find>
auto findByCaptureName(std::string_view name, Find find) -> decltype(find(name)) {
    while (!name.empty()) {
        if (auto found = find(name)) return found;
        const std::size_t dot = name.rfind('.');
        name = name.substr(0, dot == std::string_view::npos ? 0 : dot);
    }
    return std::nullopt;
}

} // namespace tessarine
