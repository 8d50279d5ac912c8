#include "Quillet/core/Folder.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/LibraryModel.h"

namespace quillet {

Folder::Folder()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Folder"))) {}

std::shared_ptr<Folder> Folder::create(const QString& title, const QDateTime& /*date*/) {
    auto created = std::make_shared<Folder>();
    CoreDataStack::shared().viewContext().insert(created);
    created->setValue(Id, QUuid::createUuid());
    created->setValue(Title, title);
    return created;
}

} // namespace quillet
