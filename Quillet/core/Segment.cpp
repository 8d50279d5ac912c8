#include "Quillet/core/Segment.h"

#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/DateFormats.h"
#include "platform/store/ManagedObjectContext.h"

namespace quillet {

Segment::Segment()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Segment"))) {}

void Segment::keepConflicting(Snippet& snippet, const QString& text) {
    const auto segment = std::make_shared<Segment>();
    snippet.context()->insert(segment);
    segment->setTitle(QStringLiteral("Conflict - ") + platform::shortDateTime(QDateTime::currentDateTime()));
    segment->setCode(text);
    segment->setToOne(OfSnippet, &snippet);
}

} // namespace quillet
