#include "platform/mirror/MirrorShape.h"

#include <algorithm>

namespace platform {

MirrorShape::MirrorShape(std::shared_ptr<const ManagedObjectModel> model)
    : m_model(std::move(model))
    , m_entities(m_model->entities().size()) {
    for (std::size_t i = 0; i < m_entities.size(); ++i) {
        m_entities[i].entity = &m_model->entities()[i];
        describe(m_entities[i]);
    }
    for (const auto& source : m_entities) {
        for (auto& target : m_entities) {
            for (const auto& reference : source.references)
                if (reference.target == target.entity)
                    target.referrers.push_back({source.entity, &reference});
            for (const auto& set : source.sets)
                if (set.relationship->destination == target.entity->name) target.memberships += set.table;
        }
    }
}

void MirrorShape::describe(EntityShape& shape) const {
    const auto& entity = *shape.entity;
    shape.table = quoted(entity.name);
    shape.columns = columnsOf(entity);
    for (std::size_t i = 0; i < entity.relationships.size(); ++i) {
        const auto& relationship = entity.relationships[i];
        if (isToOne(relationship))
            shape.references.push_back({&relationship, &m_model->entity(relationship.destination),
                                        quoted(relationship.name), entity.attributes.size() + i,
                                        m_model->inverseOf(relationship).deleteRule == DeleteRule::Cascade});
        else if (ownsJoinTable(m_model->entities(), entity, relationship))
            shape.sets.push_back(
                {&relationship, quoted(relationship.destination), quoted(joinTable(entity, relationship))});
    }
}

const EntityShape* MirrorShape::find(const QString& entity) const {
    const auto found =
        std::ranges::find(m_entities, entity, [](const EntityShape& shape) { return shape.entity->name; });
    return found == m_entities.end() ? nullptr : &*found;
}

const EntityShape& MirrorShape::ownerOf(const RelationshipDescription& relationship) const {
    const auto& inverses = m_model->entity(relationship.destination).relationships;
    const auto inverse = std::ranges::find(inverses, relationship.inverse, &RelationshipDescription::name);
    return *find(inverse->destination);
}

} // namespace platform
