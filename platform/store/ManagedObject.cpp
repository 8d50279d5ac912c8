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

bool ManagedObject::isFault(qsizetype attribute) const {
    return m_values[static_cast<std::size_t>(attribute)].metaType() == QMetaType::fromType<Fault>();
}

bool ManagedObject::isWhole() const {
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (isFault(static_cast<qsizetype>(i))) return false;
    return true;
}

qsizetype ManagedObject::loadedBytes() const {
    qsizetype bytes = 0;
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (m_entity->attributes[i].loading == Loading::WithObject) continue;
        if (m_values[i].typeId() == QMetaType::QString) bytes += m_values[i].toString().size() * 2;
        if (m_values[i].typeId() == QMetaType::QByteArray) bytes += m_values[i].toByteArray().size();
    }
    return bytes;
}

void ManagedObject::turnIntoFaults() const {
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (m_entity->attributes[i].loading == Loading::OnDemand) m_values[i] = QVariant::fromValue(Fault{});
}

QVariant ManagedObject::value(qsizetype attribute) const {
    if (!isFault(attribute)) return m_values[static_cast<std::size_t>(attribute)];
    return readValue(attribute).value_or(QVariant());
}

StoreResult<QVariant> ManagedObject::readValue(qsizetype attribute) const {
    if (!isFault(attribute)) return m_values[static_cast<std::size_t>(attribute)];
    if (!m_context)
        return std::unexpected(
            StoreError{StoreError::Kind::Missing, QStringLiteral("the object is no longer in the store")});
    return m_context->fulfilFault(*this, attribute);
}

void ManagedObject::setValue(qsizetype attribute, QVariant value) {
    if (m_context) m_context->makeWhole(*this);
    auto& current = m_values[static_cast<std::size_t>(attribute)];
    if (current.isNull() == value.isNull() && current == value) return;
    const QVariant before = std::exchange(current, std::move(value));
    if (m_context) m_context->noteUpdate(*this, attribute, before);
}

ManagedObject* ManagedObject::toOne(qsizetype relationship) const {
    relationshipAt(relationship, Cardinality::ToOne);
    const auto& related = m_related[static_cast<std::size_t>(relationship)];
    return related.isEmpty() ? nullptr : *related.begin();
}

void ManagedObject::setToOne(qsizetype relationship, ManagedObject* target) {
    ManagedObject* current = toOne(relationship);
    if (current == target) return;
    if (current) unlink(relationship, *current);
    if (target) link(relationship, *target);
    m_context->makeWhole(*this);
    if (target) m_context->makeWhole(*target);
}

const ObjectSet& ManagedObject::toMany(qsizetype relationship) const {
    relationshipAt(relationship, Cardinality::ToMany);
    return m_related[static_cast<std::size_t>(relationship)];
}

void ManagedObject::addToMany(qsizetype relationship, ManagedObject& target) {
    if (toMany(relationship).contains(&target)) return;
    link(relationship, target);
    m_context->makeWhole(*this);
    m_context->makeWhole(target);
}

void ManagedObject::removeFromMany(qsizetype relationship, ManagedObject& target) {
    if (!toMany(relationship).contains(&target)) return;
    unlink(relationship, target);
    // A membership that is cut leaves both rows as they are.
    if (target.isToOneAt(inverseOf(relationship))) m_context->makeWhole(target);
}

const RelationshipDescription& ManagedObject::relationshipAt(qsizetype index, Cardinality expected) const {
    const auto& relationship = m_entity->relationships.at(static_cast<std::size_t>(index));
    if (relationship.cardinality != expected)
        fatalError("A relationship was read with the other cardinality");
    return relationship;
}

qsizetype ManagedObject::inverseOf(qsizetype relationship) const {
    return m_context->model().inverseIndex(m_entity->relationships[static_cast<std::size_t>(relationship)]);
}

bool ManagedObject::isToOneAt(qsizetype relationship) const {
    return m_entity->relationships[static_cast<std::size_t>(relationship)].cardinality == Cardinality::ToOne;
}

void ManagedObject::link(qsizetype relationship, ManagedObject& target) {
    requireSameContext(target);
    const qsizetype inverse = inverseOf(relationship);
    const auto& back = target.m_related[static_cast<std::size_t>(inverse)];
    if (target.isToOneAt(inverse) && !back.isEmpty()) target.unlink(inverse, **back.begin());
    connect(relationship, target);
    m_context->noteRelationChange(*this, relationship, target, inverse);
}

void ManagedObject::unlink(qsizetype relationship, ManagedObject& target) {
    disconnect(relationship, target);
    m_context->noteRelationChange(*this, relationship, target, inverseOf(relationship));
}

void ManagedObject::connect(qsizetype relationship, ManagedObject& target) {
    m_related[static_cast<std::size_t>(relationship)].insert(&target);
    target.m_related[static_cast<std::size_t>(inverseOf(relationship))].insert(this);
}

void ManagedObject::disconnect(qsizetype relationship, ManagedObject& target) {
    m_related[static_cast<std::size_t>(relationship)].remove(&target);
    target.m_related[static_cast<std::size_t>(inverseOf(relationship))].remove(this);
}

void ManagedObject::requireSameContext(const ManagedObject& other) const {
    if (!m_context || m_context != other.m_context)
        fatalError("A relation needs two objects of the same context");
}

bool isEndOf(const ManagedObject& object, const RelationshipDescription& relationship) {
    return object.entity().name == relationship.destination;
}

std::shared_ptr<ManagedObject> makeDetached(const EntityDescription& entity) {
    if (!entity.makeObject) return std::make_shared<ManagedObject>(entity);
    auto object = entity.makeObject();
    if (&object->entity() != &entity) fatalError("An entity's class makes objects of another entity");
    return object;
}

} // namespace platform
