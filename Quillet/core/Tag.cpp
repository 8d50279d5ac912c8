#include "Quillet/core/Tag.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/LibraryModel.h"

namespace quillet {

Tag::Tag()
    : ManagedObject(libraryModel()->entity(QStringLiteral("Tag"))) {}

std::shared_ptr<Tag> Tag::create(const QString& title, qint16 colorIndex, const QDateTime& /*date*/) {
    auto created = std::make_shared<Tag>();
    CoreDataStack::shared().viewContext().insert(created);
    created->setValue(Id, QUuid::createUuid());
    created->setValue(Title, title);
    created->setValue(ColorIndex, int{colorIndex});
    return created;
}

} // namespace quillet
