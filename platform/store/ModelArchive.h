#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <expected>

namespace platform {

// The form in which a store carries its own model: JSON with the names, types, presences, destinations,
// inverses and cardinalities, which is all that a stored form depends on. Equal archives are equal forms.
QByteArray archiveModel(const std::vector<EntityDescription>& entities);

// Entities without defaults and factories. Error: says why these bytes describe no model.
std::expected<std::vector<EntityDescription>, QString> unarchiveModel(const QByteArray& archive);

} // namespace platform
