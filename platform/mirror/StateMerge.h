#pragma once

#include "platform/mirror/ObjectState.h"

#include <functional>
#include <vector>

namespace platform {

// A text of which some is not in the merged state.
struct LostText {
    QString property;
    QCborValue value;
    Stamp stamp;
};

struct StateMerge {
    ObjectState state;
    std::vector<LostText> lost;
};

// A new stamp of this device, later than a time.
using StampSource = std::function<Stamp(std::uint64_t atLeast)>;

// Joins two states of one object, and merges the texts that were written in both without having seen the
// other: by lines where there is a base that both come from; else the later stays and the other is lost. What
// is neither text has a stamp of its own. `bases` are as in MirroredObject.
StateMerge mergeStates(const ObjectState& mine, const std::map<QString, Register>& bases,
                       const ObjectState& theirs, const StampSource& newStamp);

// The server's merged texts of which the local state has others.
std::map<QString, Register> basesOf(const ObjectState& mine, const ObjectState& server);

} // namespace platform
