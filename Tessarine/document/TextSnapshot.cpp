#include "Tessarine/document/TextSnapshot.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/TextBranch.h"
#include "Tessarine/document/TextChunk.h"

#include <algorithm>

namespace tessarine {

namespace {

std::size_t memoryOf(const TextNode& node) {
    if (node.height() == 0) return static_cast<const TextChunk&>(node).memory();
    const auto& branch = static_cast<const TextBranch&>(node);
    std::size_t bytes = sizeof(branch);
    for (std::int32_t i = 0; i < branch.count(); ++i)
        bytes += memoryOf(branch.child(i));
    return bytes;
}

} // namespace

TextRun TextSnapshot::runAt(std::int64_t location) const {
    if (location < 0 || location >= length()) fatalError("A location lies outside of the text.");
    const TextNode* node = m_root.get();
    std::int64_t position = location;
    while (node->height() > 0) {
        const auto& branch = static_cast<const TextBranch&>(*node);
        node = &branch.child(branch.childAt(position));
    }
    return static_cast<const TextChunk&>(*node).run(location - position);
}

TextRuns TextSnapshot::runs(std::int64_t location, std::int64_t length) const {
    if (location < 0 || length < 0 || location > this->length() - length)
        fatalError("A range lies outside of the text.");
    return {*this, location, location + length};
}

void TextSnapshot::copy(std::int64_t location, std::int64_t length, char16_t* destination) const {
    for (const TextRun& run : runs(location, length))
        run.copyTo(destination + (run.location() - location));
}

std::u16string TextSnapshot::substring(std::int64_t location, std::int64_t length) const {
    std::u16string text;
    for (const TextRun& run : runs(location, length)) {
        if (text.empty()) text.reserve(static_cast<std::size_t>(length));
        run.visit([&text](auto units) { text.append(units.begin(), units.end()); });
    }
    return text;
}

bool TextSnapshot::equals(std::u16string_view text) const {
    if (static_cast<std::int64_t>(text.size()) != length()) return false;
    for (const TextRun& run : runs()) {
        const std::span other(text.substr(static_cast<std::size_t>(run.location())));
        if (!run.visit([other](auto units) { return equalUnits(units, other.first(units.size())); }))
            return false;
    }
    return true;
}

bool TextSnapshot::equals(const TextSnapshot& other) const {
    if (m_root.get() == other.m_root.get()) return true;
    if (length() != other.length()) return false;
    for (const TextRun& run : runs()) {
        for (const TextRun& otherRun : other.runs(run.location(), run.size())) {
            const TextRun part = run.clipped(otherRun.location(), otherRun.limit());
            const bool isEqual = part.visit([&otherRun](auto units) {
                return otherRun.visit([units](auto others) { return std::ranges::equal(units, others); });
            });
            if (!isEqual) return false;
        }
    }
    return true;
}

std::size_t TextSnapshot::memory() const {
    return m_root ? memoryOf(*m_root) : 0;
}

} // namespace tessarine
