#include "platform/store/ManagedObjectModel.h"

#include "platform/foundation/FatalError.h"
#include "platform/store/ModelArchive.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QSet>

#include <algorithm>

namespace platform {

namespace {

template <typename Description>
const Description* find(const std::vector<Description>& descriptions, const QString& name) {
    const auto found = std::ranges::find(descriptions, name, &Description::name);
    return found == descriptions.end() ? nullptr : &*found;
}

bool isNamedBack(const std::vector<EntityDescription>& entities, const EntityDescription& source,
                 const RelationshipDescription& relationship) {
    const auto* destination = find(entities, relationship.destination);
    const auto* inverse = destination ? find(destination->relationships, relationship.inverse) : nullptr;
    return inverse && inverse != &relationship && inverse->destination == source.name &&
           inverse->inverse == relationship.name;
}

} // namespace

ManagedObjectModel::ManagedObjectModel(std::vector<EntityDescription> entities, int version)
    : m_entities(std::move(entities))
    , m_version(version) {
    if (const auto text = contradiction(m_entities)) fatalError(text->toStdString());
    for (std::size_t i = 0; i < m_entities.size(); ++i)
        m_indexByName.insert(m_entities[i].name, i);
    for (const auto& source : m_entities)
        for (const auto& relationship : source.relationships)
            m_inverseIndex.insert(&relationship,
                                  relationshipIndex(entity(relationship.destination), relationship.inverse));
}

std::optional<QString> ManagedObjectModel::contradiction(const std::vector<EntityDescription>& entities) {
    QSet<QString> entityNames;
    for (const auto& source : entities) {
        if (entityNames.contains(source.name)) return QStringLiteral("Two entities %1").arg(source.name);
        entityNames.insert(source.name);
        QSet<QString> names;
        for (const auto& attribute : source.attributes)
            names.insert(attribute.name);
        for (const auto& relationship : source.relationships) {
            names.insert(relationship.name);
            if (!isNamedBack(entities, source, relationship))
                return QStringLiteral("The inverse of %1.%2 does not name it back")
                    .arg(source.name, relationship.name);
        }
        if (source.attributes.size() + source.relationships.size() > maximumProperties)
            return QStringLiteral("%1 has too many properties").arg(source.name);
        if (names.size() != static_cast<qsizetype>(source.attributes.size() + source.relationships.size()))
            return QStringLiteral("Two properties of %1 have one name").arg(source.name);
    }
    return std::nullopt;
}

const EntityDescription& ManagedObjectModel::entity(const QString& name) const {
    const auto found = m_indexByName.constFind(name);
    if (found == m_indexByName.constEnd()) fatalError("The model has no such entity: " + name.toStdString());
    return m_entities[*found];
}

qsizetype ManagedObjectModel::relationshipIndex(const EntityDescription& entity, const QString& name) {
    for (std::size_t i = 0; i < entity.relationships.size(); ++i)
        if (entity.relationships[i].name == name) return static_cast<qsizetype>(i);
    fatalError("The entity has no such relationship: " + name.toStdString());
}

const RelationshipDescription&
ManagedObjectModel::inverseOf(const RelationshipDescription& relationship) const {
    return entity(relationship.destination)
        .relationships[static_cast<std::size_t>(inverseIndex(relationship))];
}

qsizetype ManagedObjectModel::inverseIndex(const RelationshipDescription& relationship) const {
    return m_inverseIndex.value(&relationship);
}

QByteArray ManagedObjectModel::versionHash() const {
    return QCryptographicHash::hash(archiveModel(m_entities), QCryptographicHash::Sha256);
}

} // namespace platform
