#include "platform/store/RemoteMerge.h"

#include "platform/foundation/TextMerge.h"
#include "platform/store/StoreSchema.h"

namespace platform {

ContextChanges RemoteMerge::apply(const RemoteChanges& remote) {
    applyObjects(remote);
    applyMemberships(remote);
    if (m_context->m_keepText)
        for (const auto& [object, attribute, text] : m_leftOut)
            m_context->m_keepText(*object, attribute, text);
    return std::move(m_changes);
}

void RemoteMerge::applyObjects(const RemoteChanges& remote) {
    QHash<QUuid, const EntityDescription*> present;
    for (const auto& row : remote.rows)
        present.insert(row.objectID, row.entity);
    for (const auto& id : remote.deleted) {
        auto* object = m_context->m_byID.value(id);
        if (!present.contains(id))
            applyDeletion(id);
        else if (object && &object->entity() != present.value(id))
            discard(*object); // an identity is never given to two
        else
            m_renewed.insert(id);
    }
    for (const auto& row : remote.rows)
        takeIn(row);
    for (const auto& row : remote.rows)
        applyRow(row);
}

// A deletion takes the memberships along without a change of their owners' rows, so those of a renewed object
// are known as well as those of an owner among the rows.
void RemoteMerge::applyMemberships(const RemoteChanges& remote) {
    auto& pending = m_context->m_pending;
    const QSet<JoinRow> stored(remote.joins.begin(), remote.joins.end());
    QSet<QUuid> known = m_renewed;
    for (const auto& row : remote.rows)
        known.insert(row.objectID);
    for (const auto& row : pending.memberships()) {
        const bool isKnown = known.contains(row.source) || m_renewed.contains(row.target);
        if (isKnown && pending.membership(row) == stored.contains(row)) pending.noteMembershipStored(row);
    }
    for (const auto& row : remote.rows) {
        auto* object = m_context->m_byID.value(row.objectID);
        if (!object || &object->entity() != row.entity) continue;
        const auto& entities = m_context->model().entities();
        for (std::size_t i = 0; i < row.entity->relationships.size(); ++i) {
            const auto& relationship = row.entity->relationships[i];
            const auto& inverse = m_context->model().inverseOf(relationship);
            if (isToOne(relationship) || isToOne(inverse)) continue;
            if (ownsJoinTable(entities, *row.entity, relationship) || m_renewed.contains(row.objectID))
                cutJoins(*object, static_cast<qsizetype>(i), stored);
        }
    }
    for (const auto& row : stored)
        applyJoin(row);
}

void RemoteMerge::applyDeletion(const QUuid& id) {
    auto& pending = m_context->m_pending;
    auto* object = m_context->m_byID.value(id);
    if (!object) return pending.forgetMemberships(id);
    if (pending.isInserted(*object) || (pending.isChanged(*object) && object->isWhole())) {
        pending.noteMissing(*object);
        return;
    }
    discard(*object);
}

void RemoteMerge::discard(ManagedObject& object) {
    m_changes.deleted.push_back(object.shared_from_this());
    for (std::size_t i = 0; i < object.m_related.size(); ++i) {
        for (auto* other : object.m_related[i].toVector()) {
            object.disconnect(static_cast<qsizetype>(i), *other);
            noteUpdated(*other);
        }
    }
    m_context->m_pending.forget(object);
    m_context->release(object);
}

void RemoteMerge::takeIn(const StoreRow& row) {
    if (m_context->m_byID.contains(row.objectID) || m_context->m_pending.isDeleted(row.objectID)) return;
    auto object = m_context->makeObject(row);
    m_changes.inserted.push_back(object);
    m_context->adopt(std::move(object));
}

void RemoteMerge::applyRow(const StoreRow& row) {
    auto* object = m_context->m_byID.value(row.objectID);
    if (!object || &object->entity() != row.entity) return;
    if (m_context->m_pending.isInserted(*object)) {
        m_context->m_pending.noteStored(*object);
        m_kept.insert(object);
        return;
    }
    for (std::size_t i = 0; i < row.values.size(); ++i)
        applyValue(*object, static_cast<qsizetype>(i), row.values[i]);
    for (std::size_t i = 0; i < row.toOne.size(); ++i)
        if (isToOne(row.entity->relationships[i]))
            applyToOne(*object, static_cast<qsizetype>(i), row.toOne[i]);
    // An object with pending changes is whole at all times.
    if (m_context->m_pending.isChanged(*object)) m_context->makeWhole(*object);
}

void RemoteMerge::applyValue(ManagedObject& object, qsizetype attribute, const QVariant& value) {
    if (m_context->m_pending.isColumnChanged(object, attribute)) return mergeText(object, attribute, value);
    auto& current = object.m_values[static_cast<std::size_t>(attribute)];
    if (object.entity().attributes[static_cast<std::size_t>(attribute)].loading == Loading::OnDemand) {
        current = QVariant::fromValue(ManagedObject::Fault{});
    } else {
        if (current.isNull() == value.isNull() && current == value) return;
        current = value;
    }
    noteUpdated(object);
}

void RemoteMerge::mergeText(ManagedObject& object, qsizetype attribute, const QVariant& stored) {
    const auto& description = object.entity().attributes[static_cast<std::size_t>(attribute)];
    if (description.conflict != Conflict::MergeText || object.isFault(attribute)) return;
    const auto theirs = description.loading == Loading::OnDemand
                            ? m_context->m_store->readValue(object.entity(), attribute, object.objectID())
                            : stored;
    auto& pending = m_context->m_pending;
    const auto base = pending.textBase(object, attribute);
    if (!theirs || (base && *base == *theirs)) return;
    pending.setTextBase(object, attribute, *theirs);
    auto& current = object.m_values[static_cast<std::size_t>(attribute)];
    const QString mine = current.toString();
    const QString text = theirs->toString();
    if (mine == text) return;
    const auto merged =
        base ? mergeTexts(base->toString(), text, mine) : MergedText{.text = mine, .isConflict = true};
    if (merged.isConflict) m_leftOut.push_back({object.shared_from_this(), attribute, text});
    if (merged.text == mine) return;
    current = merged.text;
    noteUpdated(object);
}

void RemoteMerge::applyToOne(ManagedObject& object, qsizetype relationship, const QUuid& targetID) {
    const auto column = static_cast<qsizetype>(object.entity().attributes.size()) + relationship;
    if (m_context->m_pending.isColumnChanged(object, column)) return;
    auto* target = m_context->m_byID.value(targetID);
    const auto& description = object.entity().relationships[static_cast<std::size_t>(relationship)];
    if (target && !isEndOf(*target, description)) target = nullptr;
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

void RemoteMerge::cutJoins(ManagedObject& object, qsizetype relationship, const QSet<JoinRow>& stored) {
    auto& pending = m_context->m_pending;
    for (auto* member : object.toMany(relationship).toVector()) {
        const auto row = pending.joinRow(object, relationship, *member);
        if (!row || stored.contains(*row) || pending.membership(*row)) continue;
        if (m_kept.contains(&object)) {
            pending.noteMembershipDiffers(*row, true);
            continue;
        }
        object.disconnect(relationship, *member);
        noteUpdated(*member);
        noteUpdated(object);
    }
}

void RemoteMerge::applyJoin(const JoinRow& row) {
    auto& pending = m_context->m_pending;
    auto* owner = m_context->m_byID.value(row.source);
    auto* member = m_context->m_byID.value(row.target);
    // An end that is deleted here may be brought back before the deletion is written.
    if (!owner || !member) return pending.noteMembershipDiffers(row, false);
    if (!isEndOf(*member, *row.relationship) ||
        !isEndOf(*owner, m_context->model().inverseOf(*row.relationship)))
        return;
    const auto relationship = row.relationship - owner->entity().relationships.data();
    if (owner->toMany(relationship).contains(member) || pending.membership(row)) return;
    if (m_kept.contains(owner)) return pending.noteMembershipDiffers(row, false);
    owner->connect(relationship, *member);
    noteUpdated(*member);
    noteUpdated(*owner);
}

void RemoteMerge::noteUpdated(ManagedObject& object) {
    if (m_updated.contains(&object)) return;
    m_updated.insert(&object);
    m_changes.updated.push_back(object.shared_from_this());
}

} // namespace platform
