#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <QtCore/QSet>
#include <QtCore/QUuid>
#include <QtCore/QVariant>

#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

class ManagedObjectContext;

// One stored object: attribute values and relations to other objects of the same context.
//
// An object is detached until a context inserts it, and again after its deletion was saved; a detached object
// keeps its values and has no relations. Setting one end of a relationship sets the other. Main thread.
// Owned by its context and whoever else holds it; relations do not own.
class ManagedObject : public std::enable_shared_from_this<ManagedObject> {
public:
    // Detached, with the entity's defaults. `entity` outlives the object.
    explicit ManagedObject(const EntityDescription& entity);
    virtual ~ManagedObject() = default;
    ManagedObject(const ManagedObject&) = delete;
    ManagedObject& operator=(const ManagedObject&) = delete;

    const EntityDescription& entity() const { return *m_entity; }

    // Null while detached.
    ManagedObjectContext* context() const { return m_context; }

    // The identity of the object on every device; fixed for life.
    const QUuid& objectID() const { return m_objectID; }

    // A null QVariant is an absent value.
    const QVariant& value(qsizetype attribute) const { return m_values[static_cast<std::size_t>(attribute)]; }

    // Setting an equal value changes nothing.
    void setValue(qsizetype attribute, QVariant value);

    // Null where absent.
    ManagedObject* toOne(qsizetype relationship) const;
    void setToOne(qsizetype relationship, ManagedObject* target);

    // The members in no particular order.
    const QSet<ManagedObject*>& toMany(qsizetype relationship) const;
    // Adding a member that is there, or removing one that is not, changes nothing.
    void addToMany(qsizetype relationship, ManagedObject& target);
    void removeFromMany(qsizetype relationship, ManagedObject& target);

private:
    friend class ManagedObjectContext;

    const RelationshipDescription& relationshipAt(qsizetype index, Cardinality expected) const;
    void link(qsizetype relationship, ManagedObject& target);
    void unlink(qsizetype relationship, ManagedObject& target);
    void requireSameContext(const ManagedObject& other) const;

    const EntityDescription* m_entity;
    ManagedObjectContext* m_context = nullptr;
    std::uint64_t m_sequence = 0; // its place among the context's objects
    QUuid m_objectID = QUuid::createUuid();
    std::vector<QVariant> m_values;
    // One set a relationship; a to-one set has at most one member.
    std::vector<QSet<ManagedObject*>> m_related;
};

} // namespace platform
