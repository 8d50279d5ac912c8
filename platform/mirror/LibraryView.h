#pragma once

#include "platform/mirror/ObjectState.h"

#include <set>
#include <vector>

namespace platform {

// A to-one relationship whose target is the whole that the object is a part of.
struct PartOf {
    QString entity;
    QString property;
};

// What the user sees of a library: the objects that are alive by themselves, and those that a shown object is
// a part of. The definition of "shown", for the library as a whole; a store keeps it up to date object by
// object.
std::set<QUuid> shownObjects(const std::map<QUuid, ObjectState>& states, const std::vector<PartOf>& parts);

} // namespace platform
