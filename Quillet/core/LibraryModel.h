#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <memory>

namespace quillet {

// The model of the library's four entities: Snippet, Segment, Tag, Folder. A snippet's segments go with it;
// every other relation is cut when one end is deleted.
std::shared_ptr<const platform::ManagedObjectModel> libraryModel();

} // namespace quillet
