#include "platform/mirror/ObjectState.h"

#include "platform/mirror/DeliberateFaults.h"

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

void joinUnknown(QCborMap& mine, const QCborMap& other) {
    if (mine == other) return;
    std::map<QCborValue, QCborValue> joined;
    for (const auto& map : {mine, other})
        for (const auto& [key, value] : map) {
            const auto [entry, isNew] = joined.try_emplace(key, value);
            if (!isNew && holdsMore(value, entry->second)) entry->second = value;
        }
    mine = {};
    for (const auto& [key, value] : joined)
        mine.insert(key, value);
}

} // namespace

bool ObjectState::isAlive() const {
    if (faults::deletionAlwaysWins) return deletionSeen.isEmpty();
    return deletionSeen.isEmpty() || !deletionSeen.covers(history);
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

VersionVector ObjectState::standingWrites() const {
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

VersionVector ObjectState::writes() const {
    VersionVector writes = standingWrites();
    writes.add(history);
    return writes;
}

void ObjectState::write(const QString& property, const Stamp& stamp, QCborValue value) {
    auto& entry = registers[property];
    entry.stamp = stamp;
    entry.value = std::move(value);
    history.add(stamp);
}

void ObjectState::writeText(const QString& property, const Stamp& stamp, QCborValue value) {
    mergeText(property, stamp, std::move(value));
    history.add(stamp);
}

void ObjectState::mergeText(const QString& property, const Stamp& stamp, QCborValue value) {
    auto& entry = registers[property];
    entry.stamp = stamp;
    entry.value = std::move(value);
    entry.seen.add(stamp);
}

void ObjectState::setMember(const QString& relationship, const QUuid& target, const Stamp& stamp,
                            bool isMember) {
    sets[relationship][target] = {stamp, isMember};
    history.add(stamp);
}

void ObjectState::touch(const Stamp& stamp) {
    write(touchProperty, stamp, QCborValue(nullptr));
}

void ObjectState::markDeleted(std::uint64_t time) {
    deletionSeen.add(history);
    deletionTime = std::max(deletionTime, time);
}

void ObjectState::join(const ObjectState& other) {
    entity = std::max(entity, other.entity);
    for (const auto& [property, entry] : other.registers) {
        const auto [mine, isNew] = registers.try_emplace(property, entry);
        if (!isNew) joinRegister(mine->second, entry);
    }
    for (const auto& [relationship, elements] : other.sets)
        for (const auto& [target, element] : elements) {
            const auto [mine, isNew] = sets[relationship].try_emplace(target, element);
            if (!isNew) joinElement(mine->second, element);
        }
    history.add(other.history);
    deletionSeen.add(other.deletionSeen);
    deletionTime = std::max(deletionTime, other.deletionTime);
    joinUnknown(unknown, other.unknown);
}

void ObjectState::renameWrites(const QUuid& device, std::uint64_t time, const QUuid& newDevice) {
    const auto rename = [&](Stamp& stamp) {
        if (stamp.device == device && stamp.time > time) stamp.device = newDevice;
    };
    for (auto& [property, entry] : registers) {
        rename(entry.stamp);
        entry.seen.rename(device, time, newDevice);
    }
    for (auto& [relationship, elements] : sets)
        for (auto& [target, element] : elements)
            rename(element.stamp);
    history.rename(device, time, newDevice);
    deletionSeen.rename(device, time, newDevice);
}

} // namespace platform
