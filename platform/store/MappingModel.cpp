#include "platform/store/MappingModel.h"

#include "platform/store/StoreSchema.h"

#include <algorithm>

namespace platform {

namespace {

template <typename Description>
const Description* named(const std::vector<Description>& descriptions, const QString& name) {
    const auto found = std::ranges::find(descriptions, name, &Description::name);
    return found == descriptions.end() ? nullptr : &*found;
}

// What a description of the new model was in the old one: by its former name, else by its name.
template <typename Description>
const Description* formerOf(const Description& description, const std::vector<Description>& former) {
    if (const auto* found = named(former, description.renamedFrom)) return found;
    return named(former, description.name);
}

std::unexpected<QString> cannotInfer(const EntityDescription& entity, const QString& property,
                                     const QString& why) {
    return std::unexpected(QStringLiteral("%1.%2 %3").arg(entity.name, property, why));
}

class Inference {
public:
    Inference(const std::vector<EntityDescription>& source, const std::vector<EntityDescription>& destination)
        : m_source(&source)
        , m_destination(&destination) {}

    std::expected<MappingModel, QString> run() {
        for (const auto& entity : *m_destination)
            if (auto mapped = mapEntity(entity); !mapped) return std::unexpected(mapped.error());
        if (m_mapping.entities.empty())
            return std::unexpected(QStringLiteral("the models have no entity in common"));
        return std::move(m_mapping);
    }

private:
    using Result = std::expected<void, QString>;

    Result mapEntity(const EntityDescription& entity) {
        const auto* former = formerOf(entity, *m_source);
        if (!former) return {}; // a new entity has no objects yet
        EntityMapping mapping;
        mapping.source = static_cast<std::size_t>(former - m_source->data());
        mapping.destination = static_cast<std::size_t>(&entity - m_destination->data());
        for (const auto& attribute : entity.attributes)
            if (auto mapped = mapAttribute(mapping, entity, attribute, *former); !mapped) return mapped;
        for (const auto& relationship : entity.relationships)
            if (auto mapped = mapRelationship(mapping, entity, relationship, *former); !mapped) return mapped;
        m_mapping.entities.push_back(std::move(mapping));
        return {};
    }

    static Result mapAttribute(EntityMapping& mapping, const EntityDescription& entity,
                               const AttributeDescription& attribute, const EntityDescription& formerEntity) {
        const auto* former = formerOf(attribute, formerEntity.attributes);
        if (former && former->type != attribute.type)
            return cannotInfer(entity, attribute.name, QStringLiteral("changed its type"));
        const QVariant value = attribute.makeDefault ? attribute.makeDefault() : QVariant();
        const bool mayLack = !former || former->presence == Presence::Optional;
        if (attribute.presence == Presence::Required && mayLack && value.isNull())
            return cannotInfer(entity, attribute.name, QStringLiteral("is required and has no default"));
        // An optional attribute that was absent stays absent.
        const bool fills = !former || attribute.presence == Presence::Required;
        mapping.columns.push_back({attribute.name, former ? former->name : QString(),
                                   fills && mayLack ? value : QVariant(), attribute.type});
        return {};
    }

    Result mapRelationship(EntityMapping& mapping, const EntityDescription& entity,
                           const RelationshipDescription& relationship,
                           const EntityDescription& formerEntity) {
        const auto* former = formerOf(relationship, formerEntity.relationships);
        if (!former) return {};
        const auto& target = *named(*m_destination, relationship.destination);
        const auto& inverse = *named(target.relationships, relationship.inverse);
        const auto& formerTarget = *named(*m_source, former->destination);
        const auto& formerInverse = *named(formerTarget.relationships, former->inverse);
        if (formerOf(target, *m_source) != &formerTarget ||
            formerOf(inverse, formerTarget.relationships) != &formerInverse)
            return cannotInfer(entity, relationship.name, QStringLiteral("leads elsewhere"));
        if (former->cardinality != relationship.cardinality ||
            formerInverse.cardinality != inverse.cardinality)
            return cannotInfer(entity, relationship.name, QStringLiteral("changed its cardinality"));
        if (isToOne(relationship))
            mapping.columns.push_back({relationship.name, former->name, {}, AttributeType::Uuid});
        else if (ownsJoinTable(*m_destination, entity, relationship))
            mapJoin(joinTable(entity, relationship), formerEntity, *former, formerTarget, formerInverse);
        return {};
    }

    // A change of names may have handed the join table to its other end.
    void mapJoin(const QString& table, const EntityDescription& formerEntity,
                 const RelationshipDescription& former, const EntityDescription& formerTarget,
                 const RelationshipDescription& formerInverse) {
        const bool same = ownsJoinTable(*m_source, formerEntity, former);
        m_mapping.joins.push_back(
            {same ? joinTable(formerEntity, former) : joinTable(formerTarget, formerInverse), table,
             same ? JoinMapping::Ends::Same : JoinMapping::Ends::Swapped});
    }

    const std::vector<EntityDescription>* m_source;
    const std::vector<EntityDescription>* m_destination;
    MappingModel m_mapping;
};

} // namespace

std::expected<MappingModel, QString> MappingModel::infer(const std::vector<EntityDescription>& source,
                                                         const std::vector<EntityDescription>& destination) {
    return Inference(source, destination).run();
}

} // namespace platform
