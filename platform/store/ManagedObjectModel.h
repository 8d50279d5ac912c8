#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <bitset>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

class ManagedObject;

// The value an attribute holds in a QVariant: QString, int, bool, QDateTime, QByteArray, QUuid.
enum class AttributeType { String, Integer16, Boolean, Date, Binary, Uuid };
enum class Presence { Required, Optional };
// Whether a value is read with its object, or when somebody asks for it: for texts and data that are long and
// many.
enum class Loading { WithObject, OnDemand };
// What becomes of two writes of one value that did not know of each other, where a store is mirrored: the
// later one wins, or both texts are merged.
enum class Conflict { LaterWins, MergeText };
enum class Cardinality { ToOne, ToMany };
// What becomes of the objects at the other end when an object is deleted.
enum class DeleteRule { Nullify, Cascade };

struct AttributeDescription {
    QString name;
    AttributeType type;
    Presence presence;
    // Gives the value of a newly made object, and of a stored one that a migration gives this attribute; none
    // leaves it absent.
    std::function<QVariant()> makeDefault = {};
    Loading loading = Loading::WithObject;
    Conflict conflict = Conflict::LaterWins;
    QString renamedFrom = {}; // its name in the model before; empty where it is the same
};

struct RelationshipDescription {
    QString name;
    QString destination;
    QString inverse;
    Cardinality cardinality;
    DeleteRule deleteRule = DeleteRule::Nullify;
    QString renamedFrom = {};
};

struct EntityDescription {
    QString name;
    std::vector<AttributeDescription> attributes;
    std::vector<RelationshipDescription> relationships;
    std::function<std::shared_ptr<ManagedObject>()> makeObject =
        {}; // of a class of its own; see makeDetached()
    QString renamedFrom = {};
};

// The properties of an entity by number: its attributes by index, then its relationships by index, counted on
// from attributes.size().
constexpr std::size_t maximumProperties = 64;
using ColumnSet = std::bitset<maximumProperties>;

// The entities of a store. Attributes and relationships are known by their index in their entity.
// Immutable after construction and shared; outlives every object made from it.
class ManagedObjectModel {
public:
    // Entities that contradict each other (see contradiction()) are a fault of the program and fatal.
    // `version` grows with every change of the entities: a store of a greater version is a newer program's.
    explicit ManagedObjectModel(std::vector<EntityDescription> entities, int version = 1);

    ManagedObjectModel(const ManagedObjectModel&) = delete;
    ManagedObjectModel& operator=(const ManagedObjectModel&) = delete;

    // What makes a model of these entities impossible: a name twice, too many properties, or a relationship
    // whose inverse does not exist or does not name it back.
    static std::optional<QString> contradiction(const std::vector<EntityDescription>& entities);

    const std::vector<EntityDescription>& entities() const { return m_entities; }

    int version() const { return m_version; }

    // Fatal where there is no such entity.
    const EntityDescription& entity(const QString& name) const;
    static qsizetype relationshipIndex(const EntityDescription& entity, const QString& name);
    // The relationship at the other end.
    const RelationshipDescription& inverseOf(const RelationshipDescription& relationship) const;
    qsizetype inverseIndex(const RelationshipDescription& relationship) const;

    // A digest of everything that a stored form depends on. Stores of equal digests have the same form.
    QByteArray versionHash() const;

private:
    std::vector<EntityDescription> m_entities;
    int m_version;
    QHash<QString, std::size_t> m_indexByName;
    // By the relationship's address, which is fixed: asked at every change of a relation.
    QHash<const RelationshipDescription*, qsizetype> m_inverseIndex;
};

} // namespace platform
