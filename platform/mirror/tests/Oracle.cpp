#include "platform/mirror/tests/Oracle.h"

#include "platform/mirror/TextValue.h"

#include <algorithm>

namespace simulation {

using namespace platform;

namespace {

std::string nameOf(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toStdString();
}

} // namespace

std::optional<Oracle::Standing> Oracle::standing(const ObjectState& state, const QString& place) {
    if (const auto entry = state.registers.find(place); entry != state.registers.end())
        return Standing{entry->second.stamp.time, *entry->second.value};
    for (const auto& [relationship, elements] : state.sets)
        for (const auto& [target, element] : elements)
            if (placeOf(relationship, target) == place)
                return Standing{element.stamp.time, QCborValue(element.isMember)};
    return std::nullopt;
}

QString Oracle::placeOf(const QString& relationship, const QUuid& target) {
    return relationship + u'/' + target.toString(QUuid::WithoutBraces);
}

std::size_t Oracle::wrote(const QUuid& object, const QString& place, std::uint64_t time,
                          const QCborValue& value) {
    m_writes.push_back({object, place, time, value});
    m_writesOf[object].push_back(m_writes.size() - 1);
    return m_writes.size() - 1;
}

void Oracle::deleted(const QUuid& object, const Edits& seen) {
    m_deletions[object].push_back(seen);
}

std::optional<std::string> Oracle::check(const std::map<QUuid, ObjectState>& states,
                                         const std::set<QUuid>& shown, Deletions deletions) const {
    if (auto fault = checkLife(states, deletions)) return fault;
    if (auto fault = checkLatest(states, deletions)) return fault;
    if (auto fault = checkFutures(states, deletions)) return fault;
    return checkTokens(states, shown);
}

Edits Oracle::seenByDeletions(const QUuid& object) const {
    Edits seen;
    if (const auto deletions = m_deletions.find(object); deletions != m_deletions.end())
        for (const Edits& deletion : deletions->second)
            seen |= deletion;
    return seen;
}

bool Oracle::mustLive(const QUuid& object) const {
    const auto writes = m_writesOf.find(object);
    if (writes == m_writesOf.end()) return false; // made by the mirror
    const Edits seen = seenByDeletions(object);
    return std::ranges::any_of(m_writesOf.at(object),
                               [&seen](std::size_t write) { return !seen.test(write); });
}

std::optional<std::string> Oracle::checkLife(const std::map<QUuid, ObjectState>& states,
                                             Deletions deletions) const {
    for (const auto& [object, writes] : m_writesOf) {
        const auto state = states.find(object);
        const bool lives = state != states.end() && state->second.isAlive();
        const bool isCopy =
            state != states.end() && state->second.registers.contains(QStringLiteral("copyOf"));
        if (!lives && mustLive(object)) return "lost: " + nameOf(object);
        if (lives && !mustLive(object) && !isCopy && deletions == Deletions::Hold)
            return "came back by itself: " + nameOf(object);
    }
    return std::nullopt;
}

std::optional<std::string> Oracle::checkLatest(const std::map<QUuid, ObjectState>& states,
                                               Deletions deletions) const {
    std::map<std::pair<QUuid, QString>, std::vector<std::size_t>> latest; // several only at the same time
    for (std::size_t number = 0; number < m_writes.size(); ++number) {
        const Write& write = m_writes[number];
        auto& numbers = latest[{write.object, write.place}];
        if (!numbers.empty() && m_writes[numbers.front()].time < write.time) numbers.clear();
        if (numbers.empty() || m_writes[numbers.front()].time == write.time) numbers.push_back(number);
    }
    for (const auto& [place, numbers] : latest) {
        const auto state = states.find(place.first);
        if (state == states.end() || !mustLive(place.first)) continue;
        const Edits seen = seenByDeletions(place.first);
        const auto mayBeForgotten = [&](std::size_t number) {
            return deletions == Deletions::MayBeForgotten && seen.test(number);
        };
        const auto stands = standing(state->second, place.second);
        if (std::ranges::none_of(numbers, [&](std::size_t number) {
                return mayBeForgotten(number) || (stands && isKept(m_writes[number], *stands));
            }))
            return "not the latest: " + place.second.toStdString() + " of " + nameOf(place.first);
    }
    return std::nullopt;
}

// A text may have been merged since.
bool Oracle::isKept(const Write& write, const Standing& stands) {
    if (write.value.isUndefined()) return stands.time >= write.time;
    return stands.time == write.time && stands.value == write.value;
}

std::optional<std::string> Oracle::checkFutures(const std::map<QUuid, ObjectState>& states,
                                                Deletions deletions) const {
    for (const auto& [object, value] : m_futures) {
        const bool mayBeForgotten = deletions == Deletions::MayBeForgotten && m_deletions.contains(object);
        if (!states.contains(object) || !mustLive(object) || mayBeForgotten) continue;
        if (states.at(object).unknown.value(QStringLiteral("future")).toInteger() < value)
            return "a newer program's entry was dropped from " + nameOf(object);
    }
    return std::nullopt;
}

std::optional<std::string> Oracle::checkTokens(const std::map<QUuid, ObjectState>& states,
                                               const std::set<QUuid>& shown) const {
    QString all;
    for (const QUuid& id : shown)
        for (const auto& [property, entry] : states.at(id).registers)
            if (!entry.seen.isEmpty()) all += textOf(*entry.value).value_or(QString()) + u'\n';
    for (const QString& token : m_tokens)
        if (!m_removed.contains(token) && !all.contains(token))
            return "a text was lost: " + token.toStdString();
    return std::nullopt;
}

} // namespace simulation
