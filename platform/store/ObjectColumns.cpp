#include "platform/store/ObjectColumns.h"

#include "platform/store/StoredValue.h"

namespace platform {

StoreResult<QVariant> columnValue(const ManagedObject& object, qsizetype column) {
    const auto attributes = static_cast<qsizetype>(object.entity().attributes.size());
    if (column >= attributes) {
        const ManagedObject* target = object.toOne(column - attributes);
        return target ? idToColumn(target->objectID()) : QVariant();
    }
    auto value = object.readValue(column);
    if (!value) return value;
    return toColumn(object.entity().attributes[static_cast<std::size_t>(column)].type, *value);
}

} // namespace platform
