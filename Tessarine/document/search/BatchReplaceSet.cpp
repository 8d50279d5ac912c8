#include "Tessarine/document/search/BatchReplaceSet.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/TextStoreBuilder.h"

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

// By location, those of the same one as they come.
std::vector<const Replacement*> inOrder(const std::vector<Replacement>& replacements) {
    std::vector<const Replacement*> order;
    for (const Replacement& replacement : replacements)
        order.push_back(&replacement);
    std::ranges::sort(order, {}, [](const Replacement* r) { return std::pair(r->range.location, r); });
    return order;
}

// Requires the insertion at the start of the replaced range or behind, and in front of its end.
void insertInside(Replacement& replaced, const Replacement& insertion) {
    const std::int64_t size = std::ssize(replaced.text);
    const std::int64_t place =
        insertion.range.location - replaced.range.location + size - replaced.range.length;
    replaced.text.insert(static_cast<std::size_t>(std::clamp<std::int64_t>(place, 0, size)), insertion.text);
}

void requireRange(const TextSnapshot& text, TextRange range) {
    if (range.location < 0 || range.length < 0 || range.location > text.length() - range.length)
        fatalError("A range lies outside of the text.");
}

void append(const TextRuns& runs, TextStoreBuilder& builder) {
    for (const TextRun& run : runs)
        run.visit([&builder]<class Unit>(std::span<Unit> units) {
            if constexpr (sizeof(Unit) == 1)
                builder.appendLatin1(units);
            else
                builder.append({units.data(), units.size()});
        });
}

} // namespace

BatchReplaceSet BatchReplaceSet::resolved() const {
    BatchReplaceSet kept;
    for (const Replacement* replacement : inOrder(replacements)) {
        const bool isInside = !kept.replacements.empty() &&
                              replacement->range.location < kept.replacements.back().range.limit();
        if (!isInside)
            kept.replacements.push_back(*replacement);
        else if (replacement->range.length == 0)
            insertInside(kept.replacements.back(), *replacement);
    }
    return kept;
}

BatchReplaceResult applyBatchReplacements(const TextSnapshot& text, const BatchReplaceSet& set) {
    for (const Replacement& replacement : set.replacements)
        requireRange(text, replacement.range);
    const std::vector<Replacement> replacements = set.resolved().replacements;
    TextStoreBuilder builder;
    std::int64_t location = 0;
    for (const Replacement& replacement : replacements) {
        append(text.runs(location, replacement.range.location - location), builder);
        builder.append(replacement.text);
        location = replacement.range.limit();
    }
    append(text.runs(location, text.length() - location), builder);
    TextStore result = builder.take();
    if (replacements.empty()) return {std::move(result), {}, {}};
    const std::int64_t start = replacements.front().range.location;
    const std::int64_t grown = result.length() - text.length();
    return {std::move(result), {start, location - start}, {start, location - start + grown}};
}

} // namespace tessarine
