#include "platform/store/StoreMigration.h"

#include "platform/foundation/Durability.h"
#include "platform/store/StoreSchema.h"
#include "platform/store/StoredValue.h"

#include <QtCore/QFile>

namespace platform {

namespace {

// Tables of the old model step aside under this prefix while the new ones take their names.
const QString asidePrefix = QStringLiteral("_Old_");

StoreResult<void> requireCheck(SqliteConnection& connection, const QString& pragma, const QString& wanted) {
    auto result = connection.scalar(pragma);
    if (!result) return std::unexpected(result.error());
    if (result->toString() == wanted) return {};
    return std::unexpected(StoreError{StoreError::Kind::Corrupt, result->toString()});
}

StoreResult<QHash<QString, qint64>> rowCounts(SqliteConnection& connection) {
    QStringList tables;
    STORE_TRY(connection.query(QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table'"), {},
                               [&tables](const QSqlQuery& row) { tables += row.value(0).toString(); }));
    QHash<QString, qint64> counts;
    for (const auto& table : tables) {
        auto count = connection.scalar(QStringLiteral("SELECT count(*) FROM ") + quoted(table));
        if (!count) return std::unexpected(count.error());
        counts.insert(table, count->toLongLong());
    }
    return counts;
}

StoreResult<void> verifyCopy(SqliteConnection& original, const QString& path) {
    if (!syncToDisk(path))
        return std::unexpected(
            StoreError{StoreError::Kind::InputOutput, QStringLiteral("the copy does not reach the disk")});
    auto copy = SqliteConnection::open(path, SqliteConnection::Access::ReadOnly);
    if (!copy) return std::unexpected(copy.error());
    STORE_TRY(requireCheck(**copy, QStringLiteral("PRAGMA integrity_check(1)"), QStringLiteral("ok")));
    auto expected = rowCounts(original);
    if (!expected) return std::unexpected(expected.error());
    auto counts = rowCounts(**copy);
    if (!counts) return std::unexpected(counts.error());
    if (*counts == *expected) return {};
    return std::unexpected(StoreError{StoreError::Kind::Corrupt, QStringLiteral("the copy lacks rows")});
}

StoreResult<void> copyEntity(SqliteConnection& connection, const QString& from, const QString& to,
                             const std::vector<EntityMapping::Column>& columns) {
    QStringList names{QStringLiteral("\"_id\""), QStringLiteral("\"_rev\"")};
    QStringList sources = names;
    QVariantList values;
    for (const auto& column : columns) {
        names += quoted(column.destination);
        if (column.defaultValue.isNull()) {
            sources += column.source.isEmpty() ? QStringLiteral("NULL") : quoted(column.source);
            continue;
        }
        sources += column.source.isEmpty() ? QStringLiteral("?")
                                           : QStringLiteral("coalesce(%1, ?)").arg(quoted(column.source));
        values += toColumn(column.type, column.defaultValue);
    }
    return connection.run(
        QStringLiteral("INSERT INTO %1 (%2) SELECT %3 FROM %4 ORDER BY rowid")
            .arg(quoted(to), names.join(u','), sources.join(u','), quoted(asidePrefix + from)),
        values);
}

StoreResult<void> migrateTables(SqliteConnection& connection, const StoreMetadata& metadata,
                                const ManagedObjectModel& model, const MappingModel& mapping) {
    for (const auto& index : indexNames(metadata.entities))
        STORE_TRY(connection.run(QStringLiteral("DROP INDEX ") + quoted(index)));
    const QStringList oldTables = tableNames(metadata.entities);
    for (const auto& table : oldTables)
        STORE_TRY(connection.run(
            QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(quoted(table), quoted(asidePrefix + table))));
    for (const auto& statement : tablesOf(model.entities()))
        STORE_TRY(connection.run(statement));
    for (const auto& entity : mapping.entities)
        STORE_TRY(copyEntity(connection, metadata.entities[entity.source].name,
                             model.entities()[entity.destination].name, entity.columns));
    for (const auto& join : mapping.joins)
        STORE_TRY(
            connection.run(QStringLiteral("INSERT INTO %1 SELECT %2 FROM %3")
                               .arg(quoted(join.destination),
                                    join.ends == JoinMapping::Ends::Same ? QStringLiteral("source, target")
                                                                         : QStringLiteral("target, source"),
                                    quoted(asidePrefix + join.source))));
    for (const auto& table : oldTables)
        STORE_TRY(connection.run(QStringLiteral("DROP TABLE ") + quoted(asidePrefix + table)));
    STORE_TRY(requireCheck(connection, QStringLiteral("PRAGMA foreign_key_check"), QString()));
    return writeMetadata(connection, model);
}

} // namespace

StoreResult<void> copyVerified(SqliteConnection& connection, const QString& path) {
    STORE_TRY(requireCheck(connection, QStringLiteral("PRAGMA integrity_check(1)"), QStringLiteral("ok")));
    auto copied = connection.run(QStringLiteral("VACUUM INTO ?"), {path});
    if (copied) copied = verifyCopy(connection, path);
    if (!copied) QFile::remove(path);
    return copied;
}

StoreResult<void> migrate(SqliteConnection& connection, const StoreMetadata& metadata,
                          const ManagedObjectModel& model, const MappingModel& mapping) {
    // Tables are dropped that others refer to; foreign_key_check makes up for it before the commit.
    const QString foreignKeys = QStringLiteral("foreign_keys");
    STORE_TRY(connection.setPragma(foreignKeys, 0));
    auto migrated =
        connection.transaction([&] { return migrateTables(connection, metadata, model, mapping); });
    STORE_TRY(connection.setPragma(foreignKeys, 1));
    return migrated;
}

} // namespace platform
