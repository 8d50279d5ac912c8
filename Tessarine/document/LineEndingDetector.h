#pragma once

#include "Tessarine/document/LineEnding.h"

#include <optional>

namespace tessarine {

class LineManager;
class StringView;

// Finds out with which line breaks a document is written. Made and dropped within one call.
class LineEndingDetector {
public:
    LineEndingDetector(const LineManager& lineManager, const StringView& stringView)
        : m_lineManager(lineManager)
        , m_stringView(stringView) {}

    // The most frequent kind among the first twenty lines that end in one of the three; of equals the first
    // in the order of LineEnding. Nothing if no line does.
    std::optional<LineEnding> detect() const;

private:
    const LineManager& m_lineManager;
    const StringView& m_stringView;
};

} // namespace tessarine
