#include "platform/store/ModelArchive.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <array>

namespace platform {

namespace {

struct TypeName {
    AttributeType type;
    QLatin1String name;
};

constexpr std::array typeNames{
    TypeName{AttributeType::String, QLatin1String("string")},
    TypeName{AttributeType::Integer16, QLatin1String("integer16")},
    TypeName{AttributeType::Boolean, QLatin1String("boolean")},
    TypeName{AttributeType::Date, QLatin1String("date")},
    TypeName{AttributeType::Binary, QLatin1String("binary")},
    TypeName{AttributeType::Uuid, QLatin1String("uuid")},
};

const QString nameKey = QStringLiteral("name");
const QString typeKey = QStringLiteral("type");
const QString requiredKey = QStringLiteral("required");
const QString destinationKey = QStringLiteral("destination");
const QString inverseKey = QStringLiteral("inverse");
const QString toManyKey = QStringLiteral("toMany");
const QString attributesKey = QStringLiteral("attributes");
const QString relationshipsKey = QStringLiteral("relationships");

QJsonArray attributesOf(const EntityDescription& entity) {
    QJsonArray attributes;
    for (const auto& attribute : entity.attributes)
        attributes += QJsonObject{
            {nameKey, attribute.name},
            {typeKey, std::ranges::find(typeNames, attribute.type, &TypeName::type)->name},
            {requiredKey, attribute.presence == Presence::Required},
        };
    return attributes;
}

QJsonArray relationshipsOf(const EntityDescription& entity) {
    QJsonArray relationships;
    for (const auto& relationship : entity.relationships)
        relationships += QJsonObject{
            {nameKey, relationship.name},
            {destinationKey, relationship.destination},
            {inverseKey, relationship.inverse},
            {toManyKey, relationship.cardinality == Cardinality::ToMany},
        };
    return relationships;
}

std::expected<AttributeDescription, QString> attributeFrom(const QJsonObject& object) {
    const QString typeName = object.value(typeKey).toString();
    const auto type = std::ranges::find(typeNames, typeName, &TypeName::name);
    const QString name = object.value(nameKey).toString();
    if (type == typeNames.end() || name.isEmpty())
        return std::unexpected(QStringLiteral("an attribute of an unknown type"));
    return AttributeDescription{name, type->type,
                                object.value(requiredKey).toBool() ? Presence::Required : Presence::Optional};
}

RelationshipDescription relationshipFrom(const QJsonObject& object) {
    return {object.value(nameKey).toString(), object.value(destinationKey).toString(),
            object.value(inverseKey).toString(),
            object.value(toManyKey).toBool() ? Cardinality::ToMany : Cardinality::ToOne};
}

} // namespace

QByteArray archiveModel(const std::vector<EntityDescription>& entities) {
    QJsonArray array;
    for (const auto& entity : entities)
        array += QJsonObject{
            {nameKey, entity.name},
            {attributesKey, attributesOf(entity)},
            {relationshipsKey, relationshipsOf(entity)},
        };
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::expected<std::vector<EntityDescription>, QString> unarchiveModel(const QByteArray& archive) {
    const auto document = QJsonDocument::fromJson(archive);
    if (!document.isArray()) return std::unexpected(QStringLiteral("no model"));
    std::vector<EntityDescription> entities;
    for (const auto& value : document.array()) {
        const QJsonObject object = value.toObject();
        EntityDescription entity;
        entity.name = object.value(nameKey).toString();
        if (entity.name.isEmpty()) return std::unexpected(QStringLiteral("an entity without a name"));
        for (const auto& attribute : object.value(attributesKey).toArray()) {
            auto read = attributeFrom(attribute.toObject());
            if (!read) return std::unexpected(read.error());
            entity.attributes.push_back(std::move(*read));
        }
        for (const auto& relationship : object.value(relationshipsKey).toArray())
            entity.relationships.push_back(relationshipFrom(relationship.toObject()));
        entities.push_back(std::move(entity));
    }
    if (const auto text = ManagedObjectModel::contradiction(entities)) return std::unexpected(*text);
    return entities;
}

} // namespace platform
