#include "platform/mirror/StateMerge.h"

#include "platform/mirror/DeliberateFaults.h"
#include "platform/mirror/TextMerge.h"
#include "platform/mirror/TextValue.h"

#include <algorithm>
#include <optional>

namespace platform {

namespace {

bool areConcurrentTexts(const Register& mine, const Register& theirs) {
    return !mine.seen.isEmpty() && !theirs.seen.isEmpty() && !mine.seen.covers(theirs.stamp) &&
           !theirs.seen.covers(mine.stamp) && mine.value != theirs.value;
}

std::optional<QString> commonText(const std::map<QString, Register>& bases, const QString& property,
                                  const Register& mine, const Register& theirs) {
    const auto base = bases.find(property);
    if (base == bases.end() || !mine.seen.covers(base->second.stamp) ||
        !theirs.seen.covers(base->second.stamp))
        return std::nullopt;
    return textOf(base->second.value.value_or(QCborValue()));
}

struct TextJoin {
    QCborValue value;
    bool isConflict = false;
};

// The later text, where there is nothing to merge by.
TextJoin joinTexts(const std::optional<QString>& base, const Register& earlier, const Register& later) {
    const auto earlierText = textOf(*earlier.value);
    const auto laterText = textOf(*later.value);
    if (!base || !earlierText || !laterText) return {*later.value, !earlierText || !earlierText->isEmpty()};
    const MergedText merged = mergeTexts(*base, *earlierText, *laterText);
    return {merged.text == *laterText ? *later.value : textValue(merged.text), merged.isConflict};
}

} // namespace

StateMerge mergeStates(const ObjectState& mine, const std::map<QString, Register>& bases,
                       const ObjectState& theirs, const StampSource& newStamp) {
    StateMerge merge{mine, {}};
    merge.state.join(theirs);
    if (faults::laterTextWins) return merge;
    for (const auto& [property, other] : theirs.registers) {
        const auto found = mine.registers.find(property);
        if (found == mine.registers.end() || !areConcurrentTexts(found->second, other)) continue;
        const auto& [earlier, later] =
            std::minmax(found->second, other, [](const auto& a, const auto& b) { return a.stamp < b.stamp; });
        TextJoin join = joinTexts(commonText(bases, property, found->second, other), earlier, later);
        if (join.isConflict) merge.lost.push_back({property, *earlier.value, earlier.stamp});
        if (join.value != *later.value)
            merge.state.mergeText(property, newStamp(merge.state.latest().time), std::move(join.value));
    }
    return merge;
}

std::map<QString, Register> basesOf(const ObjectState& mine, const ObjectState& server) {
    std::map<QString, Register> bases;
    for (const auto& [property, entry] : server.registers) {
        const auto own = mine.registers.find(property);
        if (!entry.seen.isEmpty() && own != mine.registers.end() && own->second != entry)
            bases.emplace(property, entry);
    }
    return bases;
}

} // namespace platform
