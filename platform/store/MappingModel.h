#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <expected>

namespace platform {

// Where the values of a migrated store come from. Entities are indexes into the models' entities.
struct EntityMapping {
    struct Column {
        QString destination;
        QString source;        // empty: the column is new
        QVariant defaultValue; // where the source has no value; null for none. As the attribute holds it.
        AttributeType type = AttributeType::Uuid; // a to-one relationship is the UUID of its object
    };

    std::size_t source = 0;
    std::size_t destination = 0;
    std::vector<Column> columns;
};

struct JoinMapping {
    enum class Ends { Same, Swapped };

    QString source;
    QString destination;
    Ends ends = Ends::Same;
};

// How a store of one model becomes a store of another without code of its own: attributes, relationships and
// entities that came, went or changed their name, required attributes that were optional and have a default.
struct MappingModel {
    std::vector<EntityMapping> entities;
    std::vector<JoinMapping> joins;

    // Error: says what cannot be inferred.
    static std::expected<MappingModel, QString> infer(const std::vector<EntityDescription>& source,
                                                      const std::vector<EntityDescription>& destination);
};

} // namespace platform
