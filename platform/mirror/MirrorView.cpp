#include "platform/mirror/MirrorView.h"

#include "platform/mirror/MirrorValue.h"
#include "platform/store/StoredValue.h"

namespace platform {

namespace {

const Register* registerOf(const ObjectState& state, const QString& property) {
    const auto found = state.registers.find(property);
    return found == state.registers.end() ? nullptr : &found->second;
}

// What an attribute shows that no device has written.
std::optional<QVariant> unwrittenColumn(const AttributeDescription& attribute) {
    if (attribute.makeDefault) return toColumn(attribute.type, attribute.makeDefault());
    if (attribute.presence == Presence::Required) return std::nullopt;
    return QVariant();
}

} // namespace

MirrorView::MirrorView(SqliteConnection& connection, const MirrorShape& shape)
    : m_shape(&shape)
    , m_table(connection)
    , m_rows(connection) {}

StoreResult<void> MirrorView::put(const QUuid& id, MirroredObject object) {
    auto previous = m_table.read(id);
    if (!previous) return std::unexpected(previous.error());
    if (*previous && (*previous)->state.entity != object.state.entity) STORE_TRY(hideShown(id));
    STORE_TRY(bring(id, std::move(object), Entry::New, Dependents::IfChanged));
    return drain();
}

StoreResult<void> MirrorView::settle(const QUuid& id) {
    STORE_TRY(bringStored(id, Dependents::Always));
    return drain();
}

StoreResult<void> MirrorView::refresh(const std::vector<QUuid>& ids) {
    queue(ids);
    return drain();
}

StoreResult<void> MirrorView::settleNoted() {
    auto ids = m_table.unsettled();
    if (!ids) return std::unexpected(ids.error());
    if (ids->empty()) return {};
    STORE_TRY(m_table.clearUnsettled());
    for (const auto& id : *ids)
        STORE_TRY(settle(id));
    return {};
}

StoreResult<void> MirrorView::remove(const QUuid& id) {
    STORE_TRY(hideShown(id));
    STORE_TRY(m_table.remove(id));
    return drain();
}

StoreResult<void> MirrorView::hideShown(const QUuid& id) {
    auto object = m_table.read(id);
    if (!object) return std::unexpected(object.error());
    const auto* shape = *object ? m_shape->find((*object)->state.entity) : nullptr;
    if (!shape) return {};
    auto shown = m_rows.isThere(shape->table, id);
    if (!shown) return std::unexpected(shown.error());
    return *shown ? hide(*shape, id) : StoreResult<void>();
}

StoreResult<bool> MirrorView::isShown(const QUuid& id) {
    auto object = m_table.read(id);
    if (!object) return std::unexpected(object.error());
    const auto* shape = *object ? m_shape->find((*object)->state.entity) : nullptr;
    return shape ? m_rows.isThere(shape->table, id) : StoreResult<bool>(false);
}

StoreResult<void> MirrorView::bringStored(const QUuid& id, Dependents dependents) {
    auto object = m_table.read(id);
    if (!object) return std::unexpected(object.error());
    return *object ? bring(id, std::move(**object), Entry::Stored, dependents) : StoreResult<void>();
}

StoreResult<void> MirrorView::drain() {
    while (!m_queue.empty()) {
        const QUuid id = m_queue.front();
        m_queue.pop_front();
        m_queued.erase(id);
        STORE_TRY(bringStored(id, Dependents::IfChanged));
    }
    return {};
}

StoreResult<std::optional<MirroredObject>> MirrorView::object(const QUuid& id) {
    auto object = m_table.read(id);
    if (!object || !*object) return object;
    auto& state = (*object)->state;
    if (const auto* shape = m_shape->find(state.entity)) {
        auto row = m_rows.read(*shape, id);
        if (!row) return std::unexpected(row.error());
        if (*row) fillIn(*shape, **row, state);
    }
    // What neither the entry nor a row holds is not known.
    std::erase_if(state.registers, [](const auto& entry) { return !entry.second.value; });
    return object;
}

void MirrorView::fillIn(const EntityShape& shape, const MirrorRow& row, ObjectState& state) {
    const auto& attributes = shape.entity->attributes;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const auto found = state.registers.find(attributes[i].name);
        if (found != state.registers.end() && !found->second.value)
            found->second.value = toMirror(attributes[i].type, row[i]);
    }
}

void MirrorView::leaveOut(const EntityShape& shape, const MirrorRow& row, ObjectState& state) {
    const auto& attributes = shape.entity->attributes;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const auto found = state.registers.find(attributes[i].name);
        if (found != state.registers.end() && found->second.value == toMirror(attributes[i].type, row[i]))
            found->second.value.reset();
    }
}

std::optional<MirrorRow> MirrorView::fittingRow(const EntityShape& shape, const ObjectState& state,
                                                const std::optional<MirrorRow>& before) {
    const auto& attributes = shape.entity->attributes;
    MirrorRow row(attributes.size() + shape.entity->relationships.size());
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const auto* written = registerOf(state, attributes[i].name);
        const bool isAsBefore = before && (!written || !written->value);
        auto column = isAsBefore                  ? (*before)[i]
                      : written && written->value ? fromMirror(attributes[i], *written->value)
                                                  : unwrittenColumn(attributes[i]);
        // A value that only a newer program understands takes nothing away from what is on screen.
        if (!column && before) column = (*before)[i];
        if (!column) return std::nullopt;
        row[i] = *column;
    }
    for (const auto& reference : shape.references) {
        const auto* written = registerOf(state, reference.relationship->name);
        if (!written || !written->value) continue;
        const auto target = targetOf(*written->value);
        if (!target) return std::nullopt;
        row[reference.number] = idToColumn(*target);
    }
    return row;
}

StoreResult<std::vector<QUuid>> MirrorView::shownParts(const EntityShape& shape, const QUuid& id) {
    std::vector<QUuid> parts;
    auto linked = m_table.linkSources(id);
    if (!linked) return linked;
    for (const auto& referrer : shape.referrers) {
        if (!referrer.reference->isPartOfTarget) continue;
        auto referring = m_rows.referrers(referrer, id);
        if (!referring) return referring;
        parts.insert(parts.end(), referring->begin(), referring->end());
        for (const auto& source : *linked) {
            auto isShown = m_rows.isThere(quoted(referrer.entity->name), source);
            if (!isShown) return std::unexpected(isShown.error());
            if (!*isShown) continue;
            auto part = m_table.read(source);
            if (!part) return std::unexpected(part.error());
            if (!*part) continue;
            const auto* written = registerOf((*part)->state, referrer.reference->relationship->name);
            if (written && written->value && targetOf(*written->value) == id) parts.push_back(source);
        }
    }
    return parts;
}

StoreResult<bool> MirrorView::isKept(const EntityShape& shape, const QUuid& id, std::set<QUuid>& asked) {
    asked.insert(id);
    auto parts = shownParts(shape, id);
    if (!parts) return std::unexpected(parts.error());
    for (const auto& part : *parts) {
        if (asked.contains(part)) continue;
        auto isDead = m_table.isDead(part);
        if (!isDead) return isDead;
        if (!*isDead) return true;
        auto object = m_table.read(part);
        if (!object) return std::unexpected(object.error());
        const auto* shapeOfPart = *object ? m_shape->find((*object)->state.entity) : nullptr;
        if (!shapeOfPart) continue;
        auto keeps = isKept(*shapeOfPart, part, asked);
        if (!keeps || *keeps) return keeps;
    }
    return false;
}

StoreResult<void> MirrorView::bring(const QUuid& id, MirroredObject object, Entry entry,
                                    Dependents dependents) {
    const auto* shape = m_shape->find(object.state.entity);
    if (!shape || id.isNull()) return entry == Entry::New ? m_table.write(id, object) : StoreResult<void>();
    auto before = m_rows.read(*shape, id);
    if (!before) return std::unexpected(before.error());
    auto after = rowToShow(*shape, id, object.state, *before);
    if (!after) return std::unexpected(after.error());
    const ObjectState stored = object.state;
    const auto wholes = wholesOf(*shape, *after);
    if (*after) {
        STORE_TRY(show(*shape, id, **after, *before, object.state));
    } else if (*before) {
        fillIn(*shape, **before, object.state);
        STORE_TRY(hide(*shape, id));
    }
    if (entry == Entry::New || object.state != stored) STORE_TRY(m_table.write(id, object));
    const bool isSame = before->has_value() == after->has_value() && dependents == Dependents::IfChanged;
    if (!isSame || wholesOf(*shape, *before) != wholes) {
        queue(wholesOf(*shape, *before));
        queue(wholes);
    }
    return isSame ? StoreResult<void>() : queueLinked(id);
}

StoreResult<std::optional<MirrorRow>> MirrorView::rowToShow(const EntityShape& shape, const QUuid& id,
                                                            const ObjectState& state,
                                                            const std::optional<MirrorRow>& before) {
    auto row = fittingRow(shape, state, before);
    if (!row || state.isAlive()) return row;
    std::set<QUuid> asked;
    auto kept = isKept(shape, id, asked);
    if (!kept) return std::unexpected(kept.error());
    return *kept ? row : std::nullopt;
}

StoreResult<void> MirrorView::show(const EntityShape& shape, const QUuid& id, MirrorRow row,
                                   const std::optional<MirrorRow>& before, ObjectState& state) {
    std::set<QUuid> missing;
    for (const auto& reference : shape.references) {
        const QUuid target = idFromColumn(row[reference.number]);
        if (target.isNull() || (target == id && reference.target == shape.entity)) continue;
        auto isThere = m_rows.isThere(quoted(reference.target->name), target);
        if (!isThere) return std::unexpected(isThere.error());
        if (*isThere) continue;
        missing.insert(target);
        row[reference.number] = {};
    }
    STORE_TRY(before ? m_rows.update(shape, id, *before, row) : m_rows.insert(shape, id, row));
    for (const auto& set : shape.sets)
        STORE_TRY(showMembers(shape, set, id, state, missing));
    leaveOut(shape, row, state);
    return setLinks(id, missing);
}

StoreResult<void> MirrorView::showMembers(const EntityShape& shape, const EntityShape::Set& set,
                                          const QUuid& id, const ObjectState& state,
                                          std::set<QUuid>& missing) {
    std::set<QUuid> shown;
    if (const auto elements = state.sets.find(set.relationship->name); elements != state.sets.end())
        for (const auto& [target, element] : elements->second) {
            if (!element.isMember || target.isNull()) continue;
            auto isThere = m_rows.isThere(set.target, target);
            if (!isThere) return std::unexpected(isThere.error());
            (*isThere ? shown : missing).insert(target);
        }
    return m_rows.setMembers(shape, set, id, shown);
}

StoreResult<void> MirrorView::hide(const EntityShape& shape, const QUuid& id) {
    auto referrers = m_rows.referrers(shape, id);
    if (!referrers) return std::unexpected(referrers.error());
    queue(*referrers);
    STORE_TRY(m_rows.remove(shape, id));
    return m_table.removeLinksOf(id);
}

StoreResult<void> MirrorView::setLinks(const QUuid& id, const std::set<QUuid>& targets) {
    auto before = m_table.linkTargets(id);
    if (!before) return std::unexpected(before.error());
    for (const auto& target : *before)
        if (!targets.contains(target)) STORE_TRY(m_table.removeLink(id, target));
    for (const auto& target : targets)
        STORE_TRY(m_table.addLink(id, target));
    return {};
}

std::vector<QUuid> MirrorView::wholesOf(const EntityShape& shape, const std::optional<MirrorRow>& row) {
    std::vector<QUuid> wholes;
    if (!row) return wholes;
    for (const auto& reference : shape.references)
        if (reference.isPartOfTarget && !(*row)[reference.number].isNull())
            wholes.push_back(idFromColumn((*row)[reference.number]));
    return wholes;
}

StoreResult<void> MirrorView::queueLinked(const QUuid& id) {
    auto sources = m_table.linkSources(id);
    if (!sources) return std::unexpected(sources.error());
    queue(*sources);
    return {};
}

void MirrorView::queue(const std::vector<QUuid>& ids) {
    for (const auto& id : ids)
        if (m_queued.insert(id).second) m_queue.push_back(id);
}

} // namespace platform
