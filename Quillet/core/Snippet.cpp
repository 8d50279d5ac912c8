#include "Quillet/core/Snippet.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Segment.h"

#include <algorithm>

namespace quillet {

Snippet::Snippet()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Snippet"))) {}

std::shared_ptr<Snippet> Snippet::create(const QString& title, const std::optional<QString>& notes,
                                         const QString& code, const QString& language) {
    auto snippet = std::make_shared<Snippet>();
    CoreDataStack::shared().viewContext().insert(snippet);
    snippet->setTitle(title);
    snippet->setNotes(notes);
    snippet->setCode(code);
    snippet->setLanguage(language);
    return snippet;
}

platform::StoreResult<QString> Snippet::readCode() const {
    auto code = readValue(Code);
    if (!code) return std::unexpected(code.error());
    return code->toString();
}

Folder* Snippet::folder() const {
    return static_cast<Folder*>(toOne(InFolder));
}

std::vector<std::shared_ptr<Segment>> Snippet::sortedSegments() const {
    std::vector<std::shared_ptr<Segment>> segments;
    for (auto* segment : toMany(Segments))
        segments.push_back(std::static_pointer_cast<Segment>(segment->shared_from_this()));
    std::ranges::stable_sort(segments, [](const auto& a, const auto& b) {
        return a->creationDate().value_or(QDateTime::currentDateTimeUtc()) <
               b->creationDate().value_or(QDateTime::currentDateTimeUtc());
    });
    return segments;
}

} // namespace quillet
