#include "Quillet/core/LibraryModel.h"

#include "Quillet/core/Folder.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"

#include <QtCore/QDateTime>

namespace quillet {

using platform::AttributeType;
using platform::Cardinality;
using platform::Conflict;
using platform::DeleteRule;
using platform::EntityDescription;
using platform::Loading;
using platform::Presence;

namespace {

// The order of attributes and relationships is that of the index enumerations of each class.
std::vector<EntityDescription> describeEntities() {
    const QString snippet = QStringLiteral("Snippet");
    const QString segment = QStringLiteral("Segment");
    const QString tag = QStringLiteral("Tag");
    const QString folder = QStringLiteral("Folder");
    const auto make = []<typename T>(std::type_identity<T>) {
        return [] { return std::static_pointer_cast<platform::ManagedObject>(std::make_shared<T>()); };
    };
    return {
        {snippet,
         {{QStringLiteral("id"), AttributeType::Binary, Presence::Optional},
          {QStringLiteral("name"), AttributeType::String, Presence::Optional},
          {QStringLiteral("lastUpdate"), AttributeType::Date, Presence::Optional},
          {QStringLiteral("title"), AttributeType::String, Presence::Required},
          {QStringLiteral("notes"),
           AttributeType::String,
           Presence::Optional,
           {},
           Loading::WithObject,
           Conflict::MergeText},
          {QStringLiteral("code"),
           AttributeType::String,
           Presence::Required,
           {},
           Loading::OnDemand,
           Conflict::MergeText},
          {QStringLiteral("language"), AttributeType::String, Presence::Optional}},
         {{QStringLiteral("folder"), folder, QStringLiteral("snippets"), Cardinality::ToOne},
          {QStringLiteral("tags"), tag, QStringLiteral("snippets"), Cardinality::ToMany},
          {QStringLiteral("segments"), segment, QStringLiteral("snippet"), Cardinality::ToMany,
           DeleteRule::Cascade}},
         make(std::type_identity<Snippet>{})},
        {segment,
         {{QStringLiteral("code"),
           AttributeType::String,
           Presence::Optional,
           {},
           Loading::OnDemand,
           Conflict::MergeText},
          {QStringLiteral("creationDate"), AttributeType::Date, Presence::Optional,
           [] { return QVariant(QDateTime::currentDateTimeUtc()); }},
          {QStringLiteral("title"), AttributeType::String, Presence::Optional}},
         {{QStringLiteral("snippet"), snippet, QStringLiteral("segments"), Cardinality::ToOne}},
         make(std::type_identity<Segment>{})},
        {tag,
         {{QStringLiteral("id"), AttributeType::Uuid, Presence::Optional},
          {QStringLiteral("title"), AttributeType::String, Presence::Required},
          {QStringLiteral("createdDate"), AttributeType::Date, Presence::Optional},
          {QStringLiteral("colorIndex"), AttributeType::Integer16, Presence::Required}},
         {{QStringLiteral("snippets"), snippet, QStringLiteral("tags"), Cardinality::ToMany}},
         make(std::type_identity<Tag>{})},
        {folder,
         {{QStringLiteral("id"), AttributeType::Uuid, Presence::Optional},
          {QStringLiteral("title"), AttributeType::String, Presence::Required},
          {QStringLiteral("createdDate"), AttributeType::Date, Presence::Optional}},
         {{QStringLiteral("snippets"), snippet, QStringLiteral("folder"), Cardinality::ToMany}},
         make(std::type_identity<Folder>{})},
    };
}

} // namespace

std::shared_ptr<const platform::ManagedObjectModel> libraryModel() {
    static const auto model = std::make_shared<const platform::ManagedObjectModel>(describeEntities());
    return model;
}

} // namespace quillet
