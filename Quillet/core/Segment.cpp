#include "Quillet/core/Segment.h"

#include "Quillet/core/LibraryModel.h"

namespace quillet {

Segment::Segment()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Segment"))) {}

} // namespace quillet
