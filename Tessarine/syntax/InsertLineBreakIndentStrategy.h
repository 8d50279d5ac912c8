#pragma once

#include <cstdint>

namespace tessarine {

// How a line break is put in.
struct InsertLineBreakIndentStrategy {
    std::int64_t indentLevel = 0;      // of the new line
    bool insertExtraLineBreak = false; // what follows goes to a line of its own, one level less

    friend bool operator==(const InsertLineBreakIndentStrategy&,
                           const InsertLineBreakIndentStrategy&) = default;
};

} // namespace tessarine
