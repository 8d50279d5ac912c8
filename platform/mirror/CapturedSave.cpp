#include "platform/mirror/CapturedSave.h"

#include "platform/mirror/MirrorValue.h"
#include "platform/mirror/MirrorView.h"
#include "platform/store/ManagedObject.h"
#include "platform/store/ObjectColumns.h"
#include "platform/store/StoredValue.h"

#include <algorithm>

namespace platform {

namespace {

ColumnSet referenceColumns(const EntityShape& shape) {
    ColumnSet columns;
    for (const auto& reference : shape.references)
        columns.set(reference.number);
    return columns;
}

StoreResult<QCborValue> valueOf(const ManagedObject& object, std::size_t attribute) {
    auto column = columnValue(object, static_cast<qsizetype>(attribute));
    if (!column) return std::unexpected(column.error());
    return toMirror(object.entity().attributes[attribute].type, *column);
}

QUuid targetOf(const ManagedObject& object, const EntityShape::Reference& reference) {
    const auto* target =
        object.toOne(static_cast<qsizetype>(reference.number - object.entity().attributes.size()));
    return target ? target->objectID() : QUuid();
}

} // namespace

CapturedSave::CapturedSave(SqliteConnection& connection, const MirrorShape& shape, const Stamp& latest,
                           WallTime wall)
    : m_shape(&shape)
    , m_table(connection)
    , m_rows(connection)
    , m_device(latest.device)
    , m_clock(latest.time)
    , m_wall(wall) {}

StoreResult<void> CapturedSave::capture(const StoreChanges& changes) {
    m_changes = &changes;
    for (const auto* object : changes.deleted)
        m_deleted.insert(object->objectID());
    for (const auto* object : changes.inserted)
        STORE_TRY(captureInsert(*object));
    for (const auto& [object, columns] : changes.updated)
        STORE_TRY(captureUpdate(*object, columns));
    for (const auto& row : changes.parted)
        STORE_TRY(captureMembership(row, false));
    for (const auto& row : changes.joined)
        STORE_TRY(captureMembership(row, true));
    for (const auto* object : changes.deleted)
        STORE_TRY(captureDeletion(*object));
    for (const auto& id : m_deleted)
        STORE_TRY(m_table.removeLinksOf(id));
    return {};
}

StoreResult<void> CapturedSave::finish() {
    const auto isChanged = [](const auto& entry) { return entry.second.isChanged; };
    const auto count = std::ranges::count_if(m_entries, isChanged);
    if (count == 0) return {};
    auto change = m_table.nextChanges(count);
    if (!change) return std::unexpected(change.error());
    for (auto& [id, entry] : m_entries) {
        if (!entry.isChanged) continue;
        entry.object.change = (*change)++;
        STORE_TRY(m_table.write(id, entry.object));
    }
    return m_table.setClock(m_clock.last());
}

StoreResult<CapturedSave::Entry*> CapturedSave::find(const QUuid& id) {
    const auto known = m_entries.find(id);
    if (known != m_entries.end()) return &known->second;
    auto object = m_table.read(id);
    if (!object) return std::unexpected(object.error());
    if (!*object) return nullptr;
    return &m_entries.emplace(id, Entry{std::move(**object), {}, false}).first->second;
}

StoreResult<CapturedSave::Entry*> CapturedSave::entryOf(const EntityShape& shape, const QUuid& id) {
    auto entry = find(id);
    if (!entry || *entry) return entry;
    STORE_TRY(seed(shape, id));
    return &m_entries[id];
}

const Stamp& CapturedSave::stampOf(Entry& entry) {
    entry.isChanged = true;
    if (!entry.stamp) entry.stamp = Stamp{m_clock.next(m_wall, entry.object.state.latest().time), m_device};
    return *entry.stamp;
}

StoreResult<void> CapturedSave::seed(const EntityShape& shape, const QUuid& id) {
    auto row = m_rows.read(shape, id, referenceColumns(shape));
    if (!row || !*row) return row ? StoreResult<void>() : std::unexpected(row.error());
    Entry& entry = m_entries[id];
    entry.object.state.entity = shape.entity->name;
    for (const auto& attribute : shape.entity->attributes)
        writeAttribute(entry, attribute);
    for (const auto& reference : shape.references)
        writeReference(entry, reference, idFromColumn((**row)[reference.number]));
    for (const auto& set : shape.sets) {
        auto members = m_rows.members(set, id);
        if (!members) return std::unexpected(members.error());
        for (const auto& target : *members)
            entry.object.state.setMember(set.relationship->name, target, stampOf(entry), true);
    }
    return {};
}

StoreResult<void> CapturedSave::captureInsert(const ManagedObject& object) {
    const auto* shape = m_shape->find(object.entity().name);
    auto entry = find(object.objectID());
    if (!entry) return std::unexpected(entry.error());
    if (*entry) return captureInsertOver(*shape, object, **entry);
    Entry& fresh = m_entries[object.objectID()];
    fresh.object.state.entity = shape->entity->name;
    for (const auto& attribute : shape->entity->attributes)
        writeAttribute(fresh, attribute);
    for (const auto& reference : shape->references)
        writeReference(fresh, reference, targetOf(object, reference));
    return {};
}

StoreResult<void> CapturedSave::captureInsertOver(const EntityShape& shape, const ManagedObject& object,
                                                  Entry& entry) {
    auto before = m_rows.read(shape, object.objectID());
    if (!before) return std::unexpected(before.error());
    auto& state = entry.object.state;
    if (*before) MirrorView::fillIn(shape, **before, state);
    for (std::size_t i = 0; i < shape.entity->attributes.size(); ++i) {
        const auto& attribute = shape.entity->attributes[i];
        auto value = valueOf(object, i);
        if (!value) return std::unexpected(value.error());
        const auto written = state.registers.find(attribute.name);
        if (written != state.registers.end() && written->second.value == *value)
            written->second.value.reset(); // from now on it is in the row
        else
            writeAttribute(entry, attribute);
    }
    for (const auto& reference : shape.references) {
        auto shown = shownTarget(entry, reference);
        if (!shown) return std::unexpected(shown.error());
        if (const QUuid target = targetOf(object, reference); target != *shown)
            writeReference(entry, reference, target);
    }
    STORE_TRY(partWithMembers(shape, object.objectID(), entry));
    if (!state.isAlive()) state.touch(stampOf(entry));
    entry.isChanged = true;
    return *before ? StoreResult<void>() : m_table.addUnsettled(object.objectID());
}

StoreResult<QUuid> CapturedSave::shownTarget(const Entry& entry, const EntityShape::Reference& reference) {
    const auto written = entry.object.state.registers.find(reference.relationship->name);
    if (written == entry.object.state.registers.end() || !written->second.value) return QUuid();
    const QUuid target = platform::targetOf(*written->second.value).value_or(QUuid());
    auto isThere = m_rows.isThere(quoted(reference.target->name), target);
    if (!isThere) return std::unexpected(isThere.error());
    return *isThere && !m_deleted.contains(target) ? target : QUuid();
}

// The members that the save leaves are those of the join table and those that join, without those that part.
StoreResult<void> CapturedSave::partWithMembers(const EntityShape& shape, const QUuid& id, Entry& entry) {
    for (const auto& set : shape.sets) {
        auto staying = m_rows.members(set, id);
        if (!staying) return std::unexpected(staying.error());
        for (const auto& row : m_changes->joined)
            if (row.source == id && row.relationship->name == set.relationship->name)
                staying->insert(row.target);
        auto& state = entry.object.state;
        const auto elements = state.sets.find(set.relationship->name);
        if (elements == state.sets.end()) continue;
        for (const auto& [target, element] : elements->second) {
            auto isThere = m_rows.isThere(set.target, target);
            if (!isThere) return std::unexpected(isThere.error());
            if (element.isMember && *isThere && !m_deleted.contains(target) && !staying->contains(target))
                state.setMember(set.relationship->name, target, stampOf(entry), false);
        }
    }
    return {};
}

StoreResult<void> CapturedSave::captureUpdate(const ManagedObject& object, const ColumnSet& columns) {
    const auto& shape = *m_shape->find(object.entity().name);
    auto before = m_rows.read(shape, object.objectID(), columns);
    if (!before || !*before) return before ? StoreResult<void>() : std::unexpected(before.error());
    auto entry = entryOf(shape, object.objectID());
    if (!entry) return std::unexpected(entry.error());
    for (std::size_t i = 0; i < shape.entity->attributes.size(); ++i) {
        if (!columns.test(i)) continue;
        auto value = valueOf(object, i);
        if (!value) return std::unexpected(value.error());
        const auto& attribute = shape.entity->attributes[i];
        const auto old = toMirror(attribute.type, (**before)[i]);
        if (old == *value) continue;
        auto& registers = (*entry)->object.state.registers;
        if (const auto written = registers.find(attribute.name); written != registers.end())
            written->second.value = old;
        writeAttribute(**entry, attribute);
    }
    for (const auto& reference : shape.references) {
        const QUuid old = idFromColumn((**before)[reference.number]);
        const QUuid target = targetOf(object, reference);
        if (!columns.test(reference.number) || target == old || (target.isNull() && m_deleted.contains(old)))
            continue;
        writeReference(**entry, reference, target);
        if (reference.isPartOfTarget) STORE_TRY(keepAlive(old));
    }
    return {};
}

StoreResult<void> CapturedSave::captureMembership(const JoinRow& row, bool isMember) {
    const auto& owner = m_shape->ownerOf(*row.relationship);
    auto entry = entryOf(owner, row.source);
    if (!entry) return std::unexpected(entry.error());
    auto& state = (*entry)->object.state;
    const QString& relationship = row.relationship->name;
    const auto known = state.sets[relationship].find(row.target);
    if (known == state.sets[relationship].end() || known->second.isMember != isMember)
        state.setMember(relationship, row.target, stampOf(**entry), isMember);
    return {};
}

StoreResult<void> CapturedSave::captureDeletion(const ManagedObject& object) {
    const auto& shape = *m_shape->find(object.entity().name);
    const QUuid id = object.objectID();
    auto row = m_rows.read(shape, id);
    if (!row || !*row) return row ? StoreResult<void>() : std::unexpected(row.error());
    auto entry = entryOf(shape, id);
    if (!entry) return std::unexpected(entry.error());
    auto& state = (*entry)->object.state;
    MirrorView::fillIn(shape, **row, state);
    state.markDeleted(stampOf(**entry).time);
    for (const auto& reference : shape.references)
        if (reference.isPartOfTarget) STORE_TRY(keepAlive(idFromColumn((**row)[reference.number])));
    return noteReferrers(shape, id);
}

StoreResult<void> CapturedSave::noteReferrers(const EntityShape& shape, const QUuid& id) {
    for (const auto& query : MirrorRows::referrerQueries(shape))
        STORE_TRY(m_table.addLinks(query, id));
    for (const auto& referrer : shape.referrers) {
        if (!referrer.reference->isPartOfTarget) continue;
        auto parts = m_rows.referrers(referrer, id);
        if (!parts) return std::unexpected(parts.error());
        // A part that came from elsewhere and goes on without its whole brings it back.
        if (!std::ranges::all_of(*parts, [this](const QUuid& part) { return m_deleted.contains(part); }))
            return m_table.addUnsettled(id);
    }
    return {};
}

StoreResult<void> CapturedSave::keepAlive(const QUuid& whole) {
    if (whole.isNull() || m_deleted.contains(whole)) return {};
    auto entry = find(whole);
    if (!entry) return std::unexpected(entry.error());
    if (*entry && !(*entry)->object.state.isAlive()) (*entry)->object.state.touch(stampOf(**entry));
    return {};
}

void CapturedSave::writeAttribute(Entry& entry, const AttributeDescription& attribute) {
    auto& state = entry.object.state;
    const Stamp& stamp = stampOf(entry);
    if (attribute.conflict == Conflict::LaterWins) {
        state.write(attribute.name, stamp, {});
    } else {
        const auto before = state.registers.find(attribute.name);
        if (before != state.registers.end() && entry.object.revision > 0)
            entry.object.bases.try_emplace(attribute.name, before->second);
        state.writeText(attribute.name, stamp, {});
    }
    state.registers[attribute.name].value.reset();
}

void CapturedSave::writeReference(Entry& entry, const EntityShape::Reference& reference,
                                  const QUuid& target) {
    entry.object.state.write(reference.relationship->name, stampOf(entry), referenceTo(target));
}

} // namespace platform
