#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/ObjectSet.h"
#include "platform/store/StoreError.h"

#include <QtCore/QUuid>
#include <QtCore/QVariant>

#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

class ManagedObjectContext;

// One stored object: attribute values and relations to other objects of the same context.
//
// An object is detached until a context inserts it, and again once its deletion is known; a detached object
// keeps the values that were in memory and has no relations. Setting one end of a relationship sets the
// other. Main thread. Owned by its context and whoever else holds it; relations do not own.
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
    const QUuid& objectID() const {
        // Made when first asked for: most objects come from a store and have theirs already.
        if (m_objectID.isNull()) m_objectID = QUuid::createUuid();
        return m_objectID;
    }

    // Its place among the objects of its context, by when they came in.
    std::uint64_t sequence() const { return m_sequence; }

    // A null QVariant is an absent value. A value that is loaded on demand is read from the store here, and
    // is null as well where that fails: who would write it back asks readValue() instead.
    QVariant value(qsizetype attribute) const;

    // Error: the store cannot be read now, or the object is gone from it.
    StoreResult<QVariant> readValue(qsizetype attribute) const;

    // Whether the value is known to be absent. Reads nothing: a value in the store only counts as there.
    bool isAbsent(qsizetype attribute) const {
        return m_values[static_cast<std::size_t>(attribute)].isNull();
    }

    // Setting an equal value changes nothing.
    void setValue(qsizetype attribute, QVariant value);

    // Null where absent.
    ManagedObject* toOne(qsizetype relationship) const;
    void setToOne(qsizetype relationship, ManagedObject* target);

    // The members in no particular order; the set changes with the relation.
    const ObjectSet& toMany(qsizetype relationship) const;
    // Adding a member that is there, or removing one that is not, changes nothing.
    void addToMany(qsizetype relationship, ManagedObject& target);
    void removeFromMany(qsizetype relationship, ManagedObject& target);

private:
    friend class ManagedObjectContext;
    friend class RemoteMerge;

    // Stands for a value that is in the store and not in memory.
    struct Fault {};

    bool isFault(qsizetype attribute) const;
    bool isWhole() const;
    // Of the values that are loaded on demand: the size of those in memory, and giving up all of them.
    qsizetype loadedBytes() const;
    void turnIntoFaults() const;
    const RelationshipDescription& relationshipAt(qsizetype index, Cardinality expected) const;
    qsizetype inverseOf(qsizetype relationship) const;
    bool isToOneAt(qsizetype relationship) const;

    // link and unlink are changes that a save will write; connect and disconnect only set both ends.
    void link(qsizetype relationship, ManagedObject& target);
    void unlink(qsizetype relationship, ManagedObject& target);
    void connect(qsizetype relationship, ManagedObject& target);
    void disconnect(qsizetype relationship, ManagedObject& target);
    void requireSameContext(const ManagedObject& other) const;

    const EntityDescription* m_entity;
    ManagedObjectContext* m_context = nullptr;
    std::uint64_t m_sequence = 0;
    mutable QUuid m_objectID;
    mutable std::vector<QVariant> m_values;
    // One set a relationship; a to-one set has at most one member.
    std::vector<ObjectSet> m_related;
};

// Whether the relationship leads to objects of this one's entity. What a file says must not be believed.
bool isEndOf(const ManagedObject& object, const RelationshipDescription& relationship);

// A new object of the entity's class, or of none in particular where the entity names none.
std::shared_ptr<ManagedObject> makeDetached(const EntityDescription& entity);

} // namespace platform
