#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/StoreSchema.h"

#include <memory>

namespace platform {

// What a mirror has to know of one entity's tables.
struct EntityShape {
    // A to-one relationship.
    struct Reference {
        const RelationshipDescription* relationship = nullptr;
        const EntityDescription* target = nullptr;
        QString column;              // quoted
        std::size_t number = 0;      // of the column
        bool isPartOfTarget = false; // deleting the target deletes the source as well
    };

    // A to-many relationship that owns its join table.
    struct Set {
        const RelationshipDescription* relationship = nullptr;
        QString target; // the quoted table of its members
        QString table;  // quoted
    };

    // A to-one relationship of another entity that leads here.
    struct Referrer {
        const EntityDescription* entity = nullptr;
        const Reference* reference = nullptr;
    };

    const EntityDescription* entity = nullptr;
    QString table; // quoted
    std::vector<StoredColumn> columns;
    std::vector<Reference> references;
    std::vector<Set> sets;
    std::vector<Referrer> referrers;
    QStringList memberships; // quoted join tables whose targets are here
};

// The shapes of a model's entities. Immutable and shared between threads.
class MirrorShape {
public:
    explicit MirrorShape(std::shared_ptr<const ManagedObjectModel> model);
    MirrorShape(const MirrorShape&) = delete;
    MirrorShape& operator=(const MirrorShape&) = delete;

    // Null where the model has no such entity.
    const EntityShape* find(const QString& entity) const;

    // The entity that has this relationship, for one whose join table it owns.
    const EntityShape& ownerOf(const RelationshipDescription& relationship) const;

    const std::vector<EntityShape>& entities() const { return m_entities; }

    const ManagedObjectModel& model() const { return *m_model; }

private:
    void describe(EntityShape& shape) const;

    std::shared_ptr<const ManagedObjectModel> m_model;
    std::vector<EntityShape> m_entities;
};

} // namespace platform
