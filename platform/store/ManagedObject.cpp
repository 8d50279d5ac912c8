#include "platform/store/ManagedObject.h"

#include "platform/foundation/FatalError.h"
#include "platform/store/ManagedObjectContext.h"

namespace platform {

ManagedObject::ManagedObject(const EntityDescription& entity)
    : m_entity(&entity)
    , m_values(entity.attributes.size())
    , m_related(entity.relationships.size()) {
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (const auto& makeDefault = entity.attributes[i].makeDefault) m_values[i] = makeDefault();
}

void ManagedObject::setValue(qsizetype attribute, QVariant value) {
    auto& current = m_values[static_cast<std::size_t>(attribute)];
    if (current.isNull() == value.isNull() && current == value) return;
    current = std::move(value);
    if (m_context) m_context->noteAttributeChange(*this, attribute);
}

ManagedObject* ManagedObject::toOne(qsizetype relationship) const {
    relationshipAt(relationship, Cardinality::ToOne);
    const auto& related = m_related[static_cast<std::size_t>(relationship)];
    return related.isEmpty() ? nullptr : *related.constBegin();
}

void ManagedObject::setToOne(qsizetype relationship, ManagedObject* target) {
    ManagedObject* current = toOne(relationship);
    if (current == target) return;
    if (current) unlink(relationship, *current);
    if (target) link(relationship, *target);
}

const QSet<ManagedObject*>& ManagedObject::toMany(qsizetype relationship) const {
    relationshipAt(relationship, Cardinality::ToMany);
    return m_related[static_cast<std::size_t>(relationship)];
}

void ManagedObject::addToMany(qsizetype relationship, ManagedObject& target) {
    if (!toMany(relationship).contains(&target)) link(relationship, target);
}

void ManagedObject::removeFromMany(qsizetype relationship, ManagedObject& target) {
    if (toMany(relationship).contains(&target)) unlink(relationship, target);
}

const RelationshipDescription& ManagedObject::relationshipAt(qsizetype index, Cardinality expected) const {
    const auto& relationship = m_entity->relationships.at(static_cast<std::size_t>(index));
    if (relationship.cardinality != expected)
        fatalError("A relationship was read with the other cardinality");
    return relationship;
}

void ManagedObject::link(qsizetype relationship, ManagedObject& target) {
    requireSameContext(target);
    const auto& description = m_entity->relationships[static_cast<std::size_t>(relationship)];
    const qsizetype inverse = m_context->model().inverseIndex(description);
    const auto inverseCardinality =
        target.m_entity->relationships[static_cast<std::size_t>(inverse)].cardinality;
    auto& back = target.m_related[static_cast<std::size_t>(inverse)];
    if (inverseCardinality == Cardinality::ToOne && !back.isEmpty())
        target.unlink(inverse, **back.constBegin());
    m_related[static_cast<std::size_t>(relationship)].insert(&target);
    back.insert(this);
    m_context->noteRelationChange(*this, relationship, target, inverse);
}

void ManagedObject::unlink(qsizetype relationship, ManagedObject& target) {
    const auto& description = m_entity->relationships[static_cast<std::size_t>(relationship)];
    const qsizetype inverse = m_context->model().inverseIndex(description);
    m_related[static_cast<std::size_t>(relationship)].remove(&target);
    target.m_related[static_cast<std::size_t>(inverse)].remove(this);
    m_context->noteRelationChange(*this, relationship, target, inverse);
}

void ManagedObject::requireSameContext(const ManagedObject& other) const {
    if (!m_context || m_context != other.m_context)
        fatalError("A relation needs two objects of the same context");
}

} // namespace platform
