#include "platform/store/StoreSchema.h"

#include "platform/store/StoredValue.h"

#include <algorithm>

namespace platform {

namespace {

// A join table and the entities at its ends.
struct Join {
    QString table;
    QString source;
    QString target;
};

std::vector<Join> joinsOf(const std::vector<EntityDescription>& entities) {
    std::vector<Join> joins;
    for (const auto& entity : entities)
        for (const auto& relationship : entity.relationships)
            if (ownsJoinTable(entities, entity, relationship))
                joins.push_back({joinTable(entity, relationship), entity.name, relationship.destination});
    return joins;
}

QString entityTable(const EntityDescription& entity) {
    QStringList columns{QStringLiteral("\"_id\" BLOB PRIMARY KEY NOT NULL"),
                        QStringLiteral("\"_rev\" INTEGER NOT NULL")};
    for (const auto& attribute : entity.attributes)
        columns += QStringLiteral("%1 %2%3").arg(
            quoted(attribute.name), columnType(attribute.type),
            attribute.presence == Presence::Required ? QStringLiteral(" NOT NULL") : QString());
    for (const auto& relationship : entity.relationships)
        if (isToOne(relationship))
            columns += QStringLiteral("%1 BLOB REFERENCES %2 DEFERRABLE INITIALLY DEFERRED")
                           .arg(quoted(relationship.name), quoted(relationship.destination));
    return QStringLiteral("CREATE TABLE %1 (%2) STRICT")
        .arg(quoted(entity.name), columns.join(QStringLiteral(", ")));
}

QString joinTableOf(const Join& join) {
    return QStringLiteral(
               "CREATE TABLE %1 (source BLOB NOT NULL REFERENCES %2 DEFERRABLE INITIALLY DEFERRED, "
               "target BLOB NOT NULL REFERENCES %3 DEFERRABLE INITIALLY DEFERRED, "
               "PRIMARY KEY (source, target)) STRICT, WITHOUT ROWID")
        .arg(quoted(join.table), quoted(join.source), quoted(join.target));
}

struct Index {
    QString name;
    QString table;
    QString column;
};

std::vector<Index> indexesOf(const std::vector<EntityDescription>& entities) {
    std::vector<Index> indexes;
    for (const auto& entity : entities) {
        indexes.push_back({entity.name + QStringLiteral("__rev"), entity.name, QStringLiteral("_rev")});
        // Without it every delete at the other end scans this table for its foreign key.
        for (const auto& relationship : entity.relationships)
            if (isToOne(relationship))
                indexes.push_back({entity.name + u'_' + relationship.name, entity.name, relationship.name});
    }
    for (const auto& join : joinsOf(entities))
        indexes.push_back({join.table + QStringLiteral("_target"), join.table, QStringLiteral("target")});
    return indexes;
}

} // namespace

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

bool isToOne(const RelationshipDescription& relationship) {
    return relationship.cardinality == Cardinality::ToOne;
}

bool ownsJoinTable(const std::vector<EntityDescription>& entities, const EntityDescription& entity,
                   const RelationshipDescription& relationship) {
    if (isToOne(relationship)) return false;
    const auto destination = std::ranges::find(entities, relationship.destination, &EntityDescription::name);
    const auto inverse =
        std::ranges::find(destination->relationships, relationship.inverse, &RelationshipDescription::name);
    if (isToOne(*inverse)) return false;
    return std::pair(entity.name, relationship.name) <= std::pair(destination->name, inverse->name);
}

QString joinTable(const EntityDescription& entity, const RelationshipDescription& relationship) {
    return QStringLiteral("_%1_%2").arg(entity.name, relationship.name);
}

std::vector<StoredColumn> columnsOf(const EntityDescription& entity) {
    std::vector<StoredColumn> columns;
    columns.reserve(entity.attributes.size() + entity.relationships.size());
    for (std::size_t i = 0; i < entity.attributes.size(); ++i)
        columns.push_back({static_cast<qsizetype>(i), quoted(entity.attributes[i].name)});
    for (std::size_t i = 0; i < entity.relationships.size(); ++i)
        if (isToOne(entity.relationships[i]))
            columns.push_back(
                {static_cast<qsizetype>(entity.attributes.size() + i), quoted(entity.relationships[i].name)});
    return columns;
}

QStringList tablesOf(const std::vector<EntityDescription>& entities) {
    QStringList statements;
    for (const auto& entity : entities)
        statements += entityTable(entity);
    for (const auto& join : joinsOf(entities))
        statements += joinTableOf(join);
    for (const auto& index : indexesOf(entities))
        statements += QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
                          .arg(quoted(index.name), quoted(index.table), quoted(index.column));
    return statements;
}

QStringList commonTables(int fileVersion) {
    const QStringList firstTables{
        QStringLiteral("CREATE TABLE \"_Metadata\" (key TEXT PRIMARY KEY NOT NULL, value ANY) STRICT"),
        QStringLiteral(
            "CREATE TABLE \"_Deleted\" (id BLOB PRIMARY KEY NOT NULL, rev INTEGER NOT NULL) STRICT, "
            "WITHOUT ROWID"),
        QStringLiteral("CREATE INDEX \"_Deleted_rev\" ON \"_Deleted\" (rev)"),
    };
    return fileVersion < 2 ? firstTables : firstTables + mirrorTables();
}

QStringList mirrorTables() {
    return {
        QStringLiteral("CREATE TABLE \"_Mirror\" (id BLOB PRIMARY KEY NOT NULL, state BLOB NOT NULL, "
                       "dead INTEGER NOT NULL, change INTEGER NOT NULL, revision INTEGER NOT NULL, "
                       "reading INTEGER NOT NULL, sent INTEGER NOT NULL, bases BLOB, parked BLOB) STRICT"),
        QStringLiteral("CREATE INDEX \"_Mirror_change\" ON \"_Mirror\" (change) WHERE change > 0"),
        QStringLiteral("CREATE INDEX \"_Mirror_dead\" ON \"_Mirror\" (revision) WHERE dead > 0"),
        QStringLiteral("CREATE TABLE \"_MirrorLinks\" (source BLOB NOT NULL, target BLOB NOT NULL, "
                       "PRIMARY KEY (source, target)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE INDEX \"_MirrorLinks_target\" ON \"_MirrorLinks\" (target)"),
        QStringLiteral("CREATE TABLE \"_MirrorState\" (key TEXT PRIMARY KEY NOT NULL, value ANY) STRICT"),
    };
}

QStringList tableNames(const std::vector<EntityDescription>& entities) {
    QStringList names;
    for (const auto& entity : entities)
        names += entity.name;
    for (const auto& join : joinsOf(entities))
        names += join.table;
    return names;
}

QStringList indexNames(const std::vector<EntityDescription>& entities) {
    QStringList names;
    for (const auto& index : indexesOf(entities))
        names += index.name;
    return names;
}

} // namespace platform
