#include "platform/mirror/ObjectState.h"

#include <algorithm>

namespace platform {

namespace {

// Holds no value of the object; no property of a model begins with a point.
const QString touchProperty = QStringLiteral(".touched");

bool holdsMore(const QCborValue& a, const QCborValue& b) {
    return a.compare(b) > 0;
}

// Equal stamps with different values do not come from correct devices; the greater value wins then, so that
// all agree all the same.
void joinRegister(Register& mine, const Register& other) {
    const bool otherWins = other.stamp > mine.stamp || (other.stamp == mine.stamp && other.value &&
                                                        mine.value && holdsMore(*other.value, *mine.value));
    if (otherWins) {
        mine.stamp = other.stamp;
        mine.value = other.value;
    } else if (other.stamp == mine.stamp && !mine.value) {
        mine.value = other.value;
    }
    mine.seen.add(other.seen);
}

// The same of memberships: to be a member is more.
void joinElement(Element& mine, const Element& other) {
    if (other.stamp > mine.stamp || (other.stamp == mine.stamp && other.isMember)) mine = other;
}

} // namespace

bool ObjectState::isAlive() const {
    if (deletionSeen.isEmpty()) return true;
    for (const auto& [property, entry] : registers)
        if (!deletionSeen.covers(entry.stamp)) return true;
    for (const auto& [relationship, elements] : sets)
        for (const auto& [target, element] : elements)
            if (!deletionSeen.covers(element.stamp)) return true;
    return false;
}

Stamp ObjectState::latest() const {
    Stamp latest;
    for (const auto& [property, entry] : registers)
        latest = std::max(latest, entry.stamp);
    for (const auto& [relationship, elements] : sets)
        for (const auto& [target, element] : elements)
            latest = std::max(latest, element.stamp);
    return latest;
}

VersionVector ObjectState::writes() const {
    VersionVector writes;
    for (const auto& [property, entry] : registers) {
        writes.add(entry.stamp);
        writes.add(entry.seen);
    }
    for (const auto& [relationship, elements] : sets)
        for (const auto& [target, element] : elements)
            writes.add(element.stamp);
    return writes;
}

void ObjectState::write(const QString& property, const Stamp& stamp, QCborValue value) {
    auto& entry = registers[property];
    entry.stamp = stamp;
    entry.value = std::move(value);
}

void ObjectState::writeText(const QString& property, const Stamp& stamp, QCborValue value) {
    write(property, stamp, std::move(value));
    registers[property].seen.add(stamp);
}

void ObjectState::setMember(const QString& relationship, const QUuid& target, const Stamp& stamp,
                            bool isMember) {
    sets[relationship][target] = {stamp, isMember};
}

void ObjectState::touch(const Stamp& stamp) {
    write(touchProperty, stamp, QCborValue(nullptr));
}

void ObjectState::markDeleted() {
    deletionSeen.add(writes());
}

void ObjectState::join(const ObjectState& other) {
    for (const auto& [property, entry] : other.registers) {
        const auto [mine, isNew] = registers.try_emplace(property, entry);
        if (!isNew) joinRegister(mine->second, entry);
    }
    for (const auto& [relationship, elements] : other.sets)
        for (const auto& [target, element] : elements) {
            const auto [mine, isNew] = sets[relationship].try_emplace(target, element);
            if (!isNew) joinElement(mine->second, element);
        }
    deletionSeen.add(other.deletionSeen);
    for (const auto& entry : other.unknown) {
        const auto mine = unknown.find(entry.first);
        if (mine == unknown.end() || holdsMore(entry.second, mine.value()))
            unknown[entry.first] = entry.second;
    }
}

} // namespace platform
