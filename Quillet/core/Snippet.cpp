#include "Quillet/core/Snippet.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/LibraryModel.h"

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

Folder* Snippet::folder() const {
    return static_cast<Folder*>(toOne(InFolder));
}

} // namespace quillet
