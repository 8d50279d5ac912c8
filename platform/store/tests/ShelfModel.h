#pragma once

#include "platform/store/ManagedObjectContext.h"

#include <QtCore/QTemporaryDir>

namespace shelf {

// A small model with every kind of relationship: books stand on one shelf, have many authors, own notes.
enum BookIndex : qsizetype { Title, Pages, Bought, Cover, Read };

enum BookRelation : qsizetype { OnShelf, Authors, Notes };

enum OtherIndex : qsizetype { Name, Books = 0 };

using platform::AttributeType;
using platform::Cardinality;
using platform::Presence;

inline std::shared_ptr<const platform::ManagedObjectModel> makeModel(const QString& extraAttribute = {}) {
    using namespace platform;
    std::vector<EntityDescription> entities(4);
    entities[0] = {
        QStringLiteral("Book"),
        {{QStringLiteral("title"), AttributeType::String, Presence::Required},
         {QStringLiteral("pages"), AttributeType::Integer16, Presence::Optional},
         {QStringLiteral("bought"), AttributeType::Date, Presence::Optional},
         {QStringLiteral("cover"), AttributeType::Binary, Presence::Optional, {}, Loading::OnDemand},
         {QStringLiteral("read"), AttributeType::Boolean, Presence::Optional}},
        {{QStringLiteral("shelf"), QStringLiteral("Shelf"), QStringLiteral("books"), Cardinality::ToOne},
         {QStringLiteral("authors"), QStringLiteral("Author"), QStringLiteral("books"), Cardinality::ToMany},
         {QStringLiteral("notes"), QStringLiteral("Note"), QStringLiteral("book"), Cardinality::ToMany,
          DeleteRule::Cascade}}};
    const auto named = [](const char* name, RelationshipDescription relationship) {
        return EntityDescription{QString::fromLatin1(name),
                                 {{QStringLiteral("name"), AttributeType::String, Presence::Optional}},
                                 {std::move(relationship)}};
    };
    entities[1] = named("Shelf", {QStringLiteral("books"), QStringLiteral("Book"), QStringLiteral("shelf"),
                                  Cardinality::ToMany});
    entities[2] = named("Author", {QStringLiteral("books"), QStringLiteral("Book"), QStringLiteral("authors"),
                                   Cardinality::ToMany});
    entities[3] = named("Note", {QStringLiteral("book"), QStringLiteral("Book"), QStringLiteral("notes"),
                                 Cardinality::ToOne});
    if (!extraAttribute.isEmpty())
        entities[0].attributes.push_back({extraAttribute, AttributeType::String, Presence::Optional});
    return std::make_shared<const ManagedObjectModel>(std::move(entities));
}

// One context on one store file, as after a start of the program.
struct Library {
    explicit Library(const QString& path,
                     std::shared_ptr<const platform::ManagedObjectModel> model = makeModel(),
                     platform::SqliteStore::Migration migration = platform::SqliteStore::Migration::Refuse)
        : context(model) {
        auto store = platform::SqliteStore::open(path, model, migration);
        const auto loaded = store ? context.setStore(std::move(*store))
                                  : platform::StoreResult<void>(std::unexpected(store.error()));
        if (!loaded) error = loaded.error();
    }

    std::shared_ptr<platform::ManagedObject> make(const char* entity, const QVariant& first = {}) {
        auto object = platform::makeDetached(context.model().entity(QString::fromLatin1(entity)));
        context.insert(object);
        if (!first.isNull()) object->setValue(0, first);
        return object;
    }

    std::vector<std::shared_ptr<platform::ManagedObject>> all(const char* entity) {
        return context.fetch({QString::fromLatin1(entity), {}, {}, {}});
    }

    platform::ManagedObjectContext context;
    std::optional<platform::StoreError> error;
};

} // namespace shelf
