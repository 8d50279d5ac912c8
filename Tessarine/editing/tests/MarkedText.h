#pragma once

#include "Tessarine/base/TextRange.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace tessarine {

// A text in which two bars show what is selected, or one where that is empty.
struct MarkedText {
    static MarkedText parse(std::u16string marked) {
        const auto takeBar = [&marked] {
            const auto at = marked.find(u'|');
            if (at != std::u16string::npos) marked.erase(at, 1);
            return at == std::u16string::npos ? -1 : static_cast<std::int64_t>(at);
        };
        const std::int64_t start = takeBar();
        const std::int64_t end = std::max(takeBar(), start);
        if (start < 0) return {.text = std::move(marked), .selection = std::nullopt};
        return {.text = std::move(marked), .selection = TextRange{start, end - start}};
    }

    std::u16string drawn() const {
        std::u16string marked = text;
        if (!selection) return marked;
        if (selection->length > 0) marked.insert(static_cast<std::size_t>(selection->limit()), 1, u'|');
        return marked.insert(static_cast<std::size_t>(selection->location), 1, u'|');
    }

    std::u16string text;
    std::optional<TextRange> selection;
};

} // namespace tessarine
