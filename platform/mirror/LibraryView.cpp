#include "platform/mirror/LibraryView.h"

namespace platform {

namespace {

// The wholes that the object is a part of.
std::vector<QUuid> wholesOf(const ObjectState& state, const std::vector<PartOf>& parts) {
    std::vector<QUuid> wholes;
    for (const PartOf& part : parts) {
        if (part.entity != state.entity) continue;
        const auto entry = state.registers.find(part.property);
        if (entry != state.registers.end() && entry->second.value)
            wholes.push_back(QUuid::fromRfc4122(entry->second.value->toByteArray()));
    }
    return wholes;
}

} // namespace

std::set<QUuid> shownObjects(const std::map<QUuid, ObjectState>& states, const std::vector<PartOf>& parts) {
    std::set<QUuid> shown;
    std::vector<QUuid> fresh;
    for (const auto& [id, state] : states)
        if (!state.entity.isEmpty() && state.isAlive()) fresh.push_back(id);
    while (!fresh.empty()) {
        const QUuid id = fresh.back();
        fresh.pop_back();
        const auto state = states.find(id);
        if (state == states.end() || !shown.insert(id).second) continue;
        for (const QUuid& whole : wholesOf(state->second, parts))
            fresh.push_back(whole);
    }
    return shown;
}

} // namespace platform
