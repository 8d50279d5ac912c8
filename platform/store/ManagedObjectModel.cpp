#include "platform/store/ManagedObjectModel.h"

#include "platform/foundation/FatalError.h"

#include <QtCore/QCryptographicHash>

namespace platform {

ManagedObjectModel::ManagedObjectModel(std::vector<EntityDescription> entities)
    : m_entities(std::move(entities)) {
    for (std::size_t i = 0; i < m_entities.size(); ++i)
        m_indexByName.insert(m_entities[i].name, i);
    for (const auto& source : m_entities) {
        for (const auto& relationship : source.relationships) {
            const auto& inverse = inverseOf(relationship);
            if (inverse.destination != source.name || inverse.inverse != relationship.name)
                fatalError("A relationship's inverse does not name it back");
        }
    }
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
    return relationshipIndex(entity(relationship.destination), relationship.inverse);
}

QByteArray ManagedObjectModel::versionHash() const {
    QString text;
    for (const auto& entity : m_entities) {
        text += QStringLiteral("entity %1\n").arg(entity.name);
        for (const auto& attribute : entity.attributes)
            text += QStringLiteral(" %1 %2 %3\n")
                        .arg(attribute.name)
                        .arg(static_cast<int>(attribute.type))
                        .arg(static_cast<int>(attribute.presence));
        for (const auto& relationship : entity.relationships)
            text += QStringLiteral(" %1 -> %2.%3 %4\n")
                        .arg(relationship.name, relationship.destination, relationship.inverse)
                        .arg(static_cast<int>(relationship.cardinality));
    }
    return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
}

} // namespace platform
