#include "Quillet/core/Segment.h"

#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/DateFormats.h"
#include "platform/foundation/TextMerge.h"
#include "platform/store/ManagedObjectContext.h"

namespace quillet {

QString conflictTitle(const QDateTime& written) {
    return QStringLiteral("Conflict - ") + platform::shortDateTime(written);
}

Segment::Segment()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Segment"))) {}

platform::StoreResult<QString> Segment::readCode() const {
    auto code = readValue(Code);
    if (!code) return std::unexpected(code.error());
    return code->toString();
}

Snippet* Segment::snippet() const {
    return static_cast<Snippet*>(toOne(OfSnippet));
}

QString Segment::mergeTyped(Snippet& snippet, const QString& base, const QString& stored,
                            const QString& typed) {
    const auto merged = platform::mergeTexts(base, stored, typed);
    if (merged.isConflict && snippet.context()) keepConflicting(snippet, stored);
    return merged.text;
}

void Segment::keepConflicting(Snippet& snippet, const QString& text) {
    const auto segment = std::make_shared<Segment>();
    snippet.context()->insert(segment);
    segment->setTitle(conflictTitle(QDateTime::currentDateTime()));
    segment->setCode(text);
    segment->setToOne(OfSnippet, &snippet);
}

} // namespace quillet
