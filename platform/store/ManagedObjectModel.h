#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

class ManagedObject;

// The value an attribute holds in a QVariant: QString, int, bool, QDateTime, QByteArray, QUuid.
enum class AttributeType { String, Integer16, Boolean, Date, Binary, Uuid };
enum class Presence { Required, Optional };
enum class Cardinality { ToOne, ToMany };
// What becomes of the objects at the other end when an object is deleted.
enum class DeleteRule { Nullify, Cascade };

struct AttributeDescription {
    QString name;
    AttributeType type;
    Presence presence;
    // Gives the value of a newly made object; none leaves it absent.
    std::function<QVariant()> makeDefault = {};
};

struct RelationshipDescription {
    QString name;
    QString destination;
    QString inverse;
    Cardinality cardinality;
    DeleteRule deleteRule = DeleteRule::Nullify;
};

struct EntityDescription {
    QString name;
    std::vector<AttributeDescription> attributes;
    std::vector<RelationshipDescription> relationships;
    std::function<std::shared_ptr<ManagedObject>()> makeObject;
};

// The entities of a store. Attributes and relationships are known by their index in their entity.
// Immutable after construction and shared; outlives every object made from it.
class ManagedObjectModel {
public:
    // Every relationship must name an existing inverse that names it back, of another name or entity;
    // anything else is a fault of the program and fatal.
    explicit ManagedObjectModel(std::vector<EntityDescription> entities);

    ManagedObjectModel(const ManagedObjectModel&) = delete;
    ManagedObjectModel& operator=(const ManagedObjectModel&) = delete;

    const std::vector<EntityDescription>& entities() const { return m_entities; }

    // Fatal where there is no such entity.
    const EntityDescription& entity(const QString& name) const;
    static qsizetype relationshipIndex(const EntityDescription& entity, const QString& name);
    // The relationship at the other end.
    const RelationshipDescription& inverseOf(const RelationshipDescription& relationship) const;
    qsizetype inverseIndex(const RelationshipDescription& relationship) const;

    // A digest of everything that a stored form depends on. Equal digests are compatible stores.
    QByteArray versionHash() const;

private:
    std::vector<EntityDescription> m_entities;
    QHash<QString, std::size_t> m_indexByName;
};

} // namespace platform
