#include "platform/store/RemoteMerge.h"

#include "platform/store/StoreSchema.h"

namespace platform {

ContextChanges RemoteMerge::apply(const RemoteChanges& remote) {
    QSet<QUuid> present;
    for (const auto& row : remote.rows)
        present.insert(row.objectID);
    for (const auto& id : remote.deleted)
        if (!present.contains(id)) applyDeletion(id);
    for (const auto& row : remote.rows)
        takeIn(row);
    for (const auto& row : remote.rows)
        applyRow(row);

    QHash<std::pair<QUuid, const RelationshipDescription*>, QSet<QUuid>> memberships;
    for (const auto& join : remote.joins)
        memberships[{join.source, join.relationship}].insert(join.target);
    for (const auto& row : remote.rows) {
        auto* owner = m_context->m_byID.value(row.objectID);
        if (!owner || m_kept.contains(owner)) continue;
        const auto& relationships = row.entity->relationships;
        for (std::size_t i = 0; i < relationships.size(); ++i)
            if (ownsJoinTable(m_context->model().entities(), *row.entity, relationships[i]))
                applyJoins(*owner, static_cast<qsizetype>(i),
                           memberships.value({row.objectID, &relationships[i]}));
    }
    return std::move(m_changes);
}

void RemoteMerge::applyDeletion(const QUuid& id) {
    auto* object = m_context->m_byID.value(id);
    if (!object || m_context->m_pending.isInserted(*object)) return;
    if (m_context->m_pending.isChanged(*object) && isWhole(*object)) {
        m_context->m_pending.updatedIsMissing(*object);
        return;
    }
    m_changes.deleted.push_back(object->shared_from_this());
    for (std::size_t i = 0; i < object->m_related.size(); ++i) {
        for (auto* other : object->m_related[i].toVector()) {
            object->disconnect(static_cast<qsizetype>(i), *other);
            noteUpdated(*other);
        }
    }
    m_context->m_pending.forget(*object);
    m_context->release(*object);
}

bool RemoteMerge::isWhole(const ManagedObject& object) const {
    for (std::size_t i = 0; i < object.m_values.size(); ++i)
        if (object.isFault(static_cast<qsizetype>(i))) return false;
    return true;
}

void RemoteMerge::takeIn(const StoreRow& row) {
    if (m_context->m_byID.contains(row.objectID) || m_context->m_pending.isDeleted(row.objectID)) return;
    auto object = m_context->makeObject(row);
    m_changes.inserted.push_back(object);
    m_context->adopt(std::move(object));
}

void RemoteMerge::applyRow(const StoreRow& row) {
    auto* object = m_context->m_byID.value(row.objectID);
    if (!object) return;
    if (m_context->m_pending.isInserted(*object)) {
        m_context->m_pending.insertedIsStored(*object);
        m_kept.insert(object);
        return;
    }
    for (std::size_t i = 0; i < row.values.size(); ++i)
        applyValue(*object, static_cast<qsizetype>(i), row.values[i]);
    for (std::size_t i = 0; i < row.toOne.size(); ++i)
        if (isToOne(row.entity->relationships[i]))
            applyToOne(*object, static_cast<qsizetype>(i), row.toOne[i]);
    // An object with pending changes is whole at all times.
    if (m_context->m_pending.isChanged(*object)) m_context->prepareChange(*object);
}

void RemoteMerge::applyValue(ManagedObject& object, qsizetype attribute, const QVariant& value) {
    if (m_context->m_pending.isColumnChanged(object, attribute)) return;
    auto& current = object.m_values[static_cast<std::size_t>(attribute)];
    if (object.entity().attributes[static_cast<std::size_t>(attribute)].loading == Loading::OnDemand) {
        if (object.isFault(attribute)) return;
        current = QVariant::fromValue(ManagedObject::Fault{});
    } else {
        if (current.isNull() == value.isNull() && current == value) return;
        current = value;
    }
    noteUpdated(object);
}

void RemoteMerge::applyToOne(ManagedObject& object, qsizetype relationship, const QUuid& targetID) {
    const auto column = static_cast<qsizetype>(object.entity().attributes.size()) + relationship;
    if (m_context->m_pending.isColumnChanged(object, column)) return;
    auto* target = m_context->m_byID.value(targetID);
    auto* current = object.toOne(relationship);
    // The next save deletes what the row refers to, so it has to cut the row's reference as well.
    if (!target && m_context->m_pending.isDeleted(targetID)) m_context->m_pending.update(object, column);
    if (target == current) return;
    if (current) {
        object.disconnect(relationship, *current);
        noteUpdated(*current);
    }
    if (target) {
        object.connect(relationship, *target);
        noteUpdated(*target);
    }
    noteUpdated(object);
}

void RemoteMerge::applyJoins(ManagedObject& owner, qsizetype relationship, const QSet<QUuid>& stored) {
    auto& pending = m_context->m_pending;
    const auto* description = &owner.entity().relationships[static_cast<std::size_t>(relationship)];
    const auto& current = owner.toMany(relationship);
    for (auto* member : current.toVector()) {
        const JoinRow row{description, owner.objectID(), member->objectID()};
        if (stored.contains(member->objectID())) {
            pending.membershipIsStored(row);
        } else if (pending.membership(row) != true) {
            owner.disconnect(relationship, *member);
            noteUpdated(*member);
            noteUpdated(owner);
        }
    }
    for (const auto& id : stored) {
        auto* member = m_context->m_byID.value(id);
        if (!member || current.contains(member)) continue;
        if (pending.membership({description, owner.objectID(), id})) continue; // removed here
        owner.connect(relationship, *member);
        noteUpdated(*member);
        noteUpdated(owner);
    }
}

void RemoteMerge::noteUpdated(ManagedObject& object) {
    if (m_updated.contains(&object)) return;
    m_updated.insert(&object);
    m_changes.updated.push_back(object.shared_from_this());
}

} // namespace platform
