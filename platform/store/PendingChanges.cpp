#include "platform/store/PendingChanges.h"

#include "platform/store/StoreSchema.h"

#include <algorithm>

namespace platform {

namespace {

// The columns of an object's own row; a to-many relationship is none of them.
ColumnSet ownColumns(const EntityDescription& entity) {
    ColumnSet columns;
    for (std::size_t i = 0; i < entity.attributes.size(); ++i)
        columns.set(i);
    for (std::size_t i = 0; i < entity.relationships.size(); ++i)
        if (isToOne(entity.relationships[i])) columns.set(entity.attributes.size() + i);
    return columns;
}

qsizetype columnOf(const ManagedObject& object, qsizetype relationship) {
    return static_cast<qsizetype>(object.entity().attributes.size()) + relationship;
}

} // namespace

bool ContextChanges::touches(const QString& entity) const {
    const auto isOfEntity = [&entity](const auto& object) { return object->entity().name == entity; };
    return std::ranges::any_of(inserted, isOfEntity) || std::ranges::any_of(updated, isOfEntity) ||
           std::ranges::any_of(deleted, isOfEntity);
}

PendingChanges::PendingChanges(std::shared_ptr<const ManagedObjectModel> model)
    : m_model(std::move(model)) {}

bool PendingChanges::isEmpty() const {
    return m_inserted.isEmpty() && m_updated.isEmpty() && m_deleted.isEmpty() && m_joins.isEmpty();
}

bool PendingChanges::isChanged(const ManagedObject& object) const {
    auto* key = const_cast<ManagedObject*>(&object);
    if (isInserted(object)) return true;
    if ((m_updated.value(key) & ownColumns(object.entity())).any()) return true;
    const auto& relationships = object.entity().relationships;
    for (std::size_t i = 0; i < relationships.size(); ++i) {
        if (isToOne(relationships[i])) continue;
        const auto relationship = static_cast<qsizetype>(i);
        const qsizetype inverse = m_model->inverseIndex(relationships[i]);
        for (const ManagedObject* member : object.toMany(relationship)) {
            const auto row = joinRow(object, relationship, *member);
            if (row ? membership(*row) == true
                    : isInserted(*member) || isColumnChanged(*member, columnOf(*member, inverse)))
                return true;
        }
    }
    return false;
}

bool PendingChanges::isColumnChanged(const ManagedObject& object, qsizetype column) const {
    return m_updated.value(const_cast<ManagedObject*>(&object)).test(static_cast<std::size_t>(column));
}

std::optional<bool> PendingChanges::membership(const JoinRow& row) const {
    const auto found = m_joins.constFind(row);
    return found == m_joins.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<JoinRow> PendingChanges::joinRow(const ManagedObject& source, qsizetype relationship,
                                               const ManagedObject& target) const {
    const auto& description = source.entity().relationships[static_cast<std::size_t>(relationship)];
    if (ownsJoinTable(m_model->entities(), source.entity(), description))
        return JoinRow{&description, source.objectID(), target.objectID()};
    const auto& inverse = m_model->inverseOf(description);
    if (ownsJoinTable(m_model->entities(), target.entity(), inverse))
        return JoinRow{&inverse, target.objectID(), source.objectID()};
    return std::nullopt;
}

void PendingChanges::insert(const std::shared_ptr<ManagedObject>& object) {
    // While its deletion is not written its row is there.
    if (m_deleted.remove(object->objectID()) > 0) m_perhapsStored.insert(object->objectID());
    m_inserted.insert(object->objectID(), object);
}

void PendingChanges::noteStored(ManagedObject& object) {
    m_inserted.remove(object.objectID());
    m_perhapsStored.remove(object.objectID());
    m_updated.insert(&object, ownColumns(object.entity()));
}

void PendingChanges::noteMissing(ManagedObject& object) {
    forget(object);
    m_inserted.insert(object.objectID(), object.shared_from_this());
    const auto& relationships = object.entity().relationships;
    for (std::size_t i = 0; i < relationships.size(); ++i) {
        if (isToOne(relationships[i])) continue;
        for (const ManagedObject* member : object.toMany(static_cast<qsizetype>(i)))
            if (const auto row = joinRow(object, static_cast<qsizetype>(i), *member))
                m_joins.insert(*row, true);
    }
}

void PendingChanges::update(ManagedObject& object, qsizetype column) {
    if (!isInserted(object)) m_updated[&object].set(static_cast<std::size_t>(column));
}

void PendingChanges::updateText(ManagedObject& object, qsizetype attribute, const QVariant& before) {
    if (!isInserted(object) && !isColumnChanged(object, attribute)) setTextBase(object, attribute, before);
    update(object, attribute);
}

std::optional<QVariant> PendingChanges::textBase(const ManagedObject& object, qsizetype attribute) const {
    const auto bases = m_textBases.constFind(&object);
    if (bases == m_textBases.constEnd()) return std::nullopt;
    const auto base = bases->constFind(attribute);
    return base == bases->constEnd() ? std::nullopt : std::optional(*base);
}

void PendingChanges::setTextBase(ManagedObject& object, qsizetype attribute, const QVariant& base) {
    m_textBases[&object].insert(attribute, base);
}

void PendingChanges::updateRelation(ManagedObject& source, qsizetype relationship, ManagedObject& target,
                                    qsizetype inverse) {
    update(source, columnOf(source, relationship));
    update(target, columnOf(target, inverse));
    const auto row = joinRow(source, relationship, target);
    if (!row) return;
    // Each change flips the membership, so a second one brings it back to what is stored, if that is known.
    const bool isMember = source.toMany(relationship).contains(&target);
    if (m_joins.remove(*row) == 0 || m_joinsMayBeStored) m_joins.insert(*row, isMember);
}

void PendingChanges::remove(const std::shared_ptr<ManagedObject>& object) {
    m_updated.remove(object.get());
    m_textBases.remove(object.get());
    // What no save has written needs no deletion in the store.
    const QUuid id = object->objectID();
    const bool isNew = m_inserted.remove(id) > 0;
    if (m_perhapsStored.remove(id) || !isNew) m_deleted.insert(id, object);
}

void PendingChanges::forget(const ManagedObject& object) {
    m_inserted.remove(object.objectID());
    m_perhapsStored.remove(object.objectID());
    m_updated.remove(const_cast<ManagedObject*>(&object));
    m_textBases.remove(&object);
    forgetMemberships(object.objectID());
}

void PendingChanges::forgetMemberships(const QUuid& id) {
    m_joins.removeIf(
        [&id](const auto& entry) { return entry.key().source == id || entry.key().target == id; });
}

void PendingChanges::noteFailedSave() {
    for (const auto& object : m_inserted)
        m_perhapsStored.insert(object->objectID());
    m_joinsMayBeStored = true;
}

std::optional<StoreError> PendingChanges::missingValue() const {
    const auto check = [](const ManagedObject& object) -> std::optional<StoreError> {
        const auto& attributes = object.entity().attributes;
        for (std::size_t i = 0; i < attributes.size(); ++i)
            if (attributes[i].presence == Presence::Required && object.isAbsent(static_cast<qsizetype>(i)))
                return StoreError{
                    StoreError::Kind::Constraint,
                    QStringLiteral("%1.%2 is absent").arg(object.entity().name, attributes[i].name)};
        return std::nullopt;
    };
    for (const auto& object : m_inserted)
        if (auto missing = check(*object)) return missing;
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it)
        if (auto missing = check(*it.key())) return missing;
    return std::nullopt;
}

StoreChanges PendingChanges::toWrite() const {
    StoreChanges changes;
    for (const auto& object : m_inserted)
        changes.inserted.push_back(object.get());
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it)
        if (const auto columns = *it & ownColumns(it.key()->entity()); columns.any())
            changes.updated.emplace_back(it.key(), columns);
    for (const auto& object : m_deleted)
        changes.deleted.push_back(object.get());
    for (auto it = m_joins.constBegin(); it != m_joins.constEnd(); ++it)
        if (!m_deleted.contains(it.key().source) && !m_deleted.contains(it.key().target))
            (*it ? changes.joined : changes.parted).push_back(it.key());
    // Rows lie in the order in which their objects were made, so that a reopened store yields them in it.
    std::ranges::sort(changes.inserted, {}, &ManagedObject::sequence);
    return changes;
}

ContextChanges PendingChanges::take() {
    ContextChanges taken;
    for (const auto& object : m_inserted)
        taken.inserted.push_back(object);
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it)
        taken.updated.push_back(it.key()->shared_from_this());
    for (const auto& object : m_deleted)
        taken.deleted.push_back(object);
    m_inserted.clear();
    m_updated.clear();
    m_textBases.clear();
    m_deleted.clear();
    m_joins.clear();
    m_perhapsStored.clear();
    m_joinsMayBeStored = false;
    return taken;
}

} // namespace platform
