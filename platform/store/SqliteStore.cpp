#include "platform/store/SqliteStore.h"

#include "platform/foundation/GeneralizedUtf8.h"
#include "platform/store/ManagedObject.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

namespace platform {

namespace {

constexpr int applicationId = 0x514C4C54; // "QLLT"
constexpr int fileVersion = 1;            // user_version; a greater one was written by a newer program

QString quoted(const QString& name) {
    return u'"' + name + u'"';
}

// Dates are whole milliseconds since 1970 UTC: an integer compares and merges exactly.
QString columnType(AttributeType type) {
    switch (type) {
    case AttributeType::String:
        return QStringLiteral("ANY"); // TEXT, or BLOB where SQLite would alter the text
    case AttributeType::Integer16:
    case AttributeType::Boolean:
    case AttributeType::Date:
        return QStringLiteral("INTEGER");
    case AttributeType::Binary:
    case AttributeType::Uuid:
        return QStringLiteral("BLOB");
    }
    return {};
}

QVariant toColumn(AttributeType type, const QVariant& value) {
    if (value.isNull()) return {};
    switch (type) {
    case AttributeType::String: {
        const QString text = value.toString();
        if (text.isEmpty()) return QStringLiteral(""); // Qt would bind a null string as NULL
        return isPlainText(text) ? QVariant(text) : QVariant(toGeneralizedUtf8(text));
    }
    case AttributeType::Boolean:
        return value.toBool() ? 1 : 0;
    case AttributeType::Date:
        return value.toDateTime().toMSecsSinceEpoch();
    case AttributeType::Uuid:
        return value.toUuid().toRfc4122();
    case AttributeType::Binary: {
        const QByteArray bytes = value.toByteArray();
        return bytes.isEmpty() ? QByteArray("") : bytes; // as with strings
    }
    case AttributeType::Integer16:
        return value;
    }
    return {};
}

QVariant fromColumn(AttributeType type, const QVariant& column) {
    if (column.isNull()) return {};
    switch (type) {
    case AttributeType::String:
        return column.typeId() == QMetaType::QByteArray ? fromGeneralizedUtf8(column.toByteArray())
                                                        : column.toString();
    case AttributeType::Integer16:
        return column.toInt();
    case AttributeType::Boolean:
        return column.toInt() != 0;
    case AttributeType::Date:
        return QDateTime::fromMSecsSinceEpoch(column.toLongLong(), Qt::UTC);
    case AttributeType::Uuid:
        return QUuid::fromRfc4122(column.toByteArray());
    case AttributeType::Binary:
        return column;
    }
    return {};
}

QVariant idColumn(const ManagedObject* object) {
    return object ? QVariant(object->objectID().toRfc4122()) : QVariant();
}

bool isToOne(const RelationshipDescription& relationship) {
    return relationship.cardinality == Cardinality::ToOne;
}

// Names of the stored columns behind the object id, in the order that StoreChanges numbers them.
struct Column {
    qsizetype index;
    QString name;
};

std::vector<Column> columnsOf(const EntityDescription& entity) {
    std::vector<Column> columns;
    columns.reserve(entity.attributes.size() + entity.relationships.size());
    for (std::size_t i = 0; i < entity.attributes.size(); ++i)
        columns.push_back({static_cast<qsizetype>(i), quoted(entity.attributes[i].name)});
    for (std::size_t i = 0; i < entity.relationships.size(); ++i)
        if (isToOne(entity.relationships[i]))
            columns.push_back(
                {static_cast<qsizetype>(entity.attributes.size() + i), quoted(entity.relationships[i].name)});
    return columns;
}

QVariant columnValue(const ManagedObject& object, qsizetype column) {
    const auto attributes = static_cast<qsizetype>(object.entity().attributes.size());
    if (column >= attributes) return idColumn(object.toOne(column - attributes));
    return toColumn(object.entity().attributes[static_cast<std::size_t>(column)].type, object.value(column));
}

StoreResult<QByteArray> readModelHash(SqliteConnection& connection) {
    auto hash = connection.scalar(QStringLiteral("SELECT value FROM \"_Metadata\" WHERE key = 'modelHash'"));
    if (!hash) return std::unexpected(hash.error());
    if (hash->isNull())
        return std::unexpected(
            StoreError{StoreError::Kind::NotADatabase, QStringLiteral("no store metadata")});
    return hash->toByteArray();
}

} // namespace

size_t qHash(const JoinRow& row, size_t seed) {
    return qHashMulti(seed, row.table, row.source, row.target);
}

bool StoreChanges::isEmpty() const {
    return inserted.empty() && updated.empty() && deleted.empty() && joined.empty() && parted.empty();
}

SqliteStore::SqliteStore(std::unique_ptr<SqliteConnection> connection,
                         std::shared_ptr<const ManagedObjectModel> model)
    : m_connection(std::move(connection))
    , m_model(std::move(model)) {}

StoreResult<StoreMetadata> SqliteStore::metadata(const QString& path) {
    auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadOnly);
    if (!connection) return std::unexpected(connection.error());
    auto version = (*connection)->scalar(QStringLiteral("PRAGMA user_version"));
    if (!version) return std::unexpected(version.error());
    if (version->toInt() > fileVersion)
        return std::unexpected(
            StoreError{StoreError::Kind::TooNew, QStringLiteral("the store was written by a newer version")});
    auto hash = readModelHash(**connection);
    if (!hash) return std::unexpected(hash.error());
    return StoreMetadata{*hash};
}

StoreResult<std::unique_ptr<SqliteStore>> SqliteStore::open(const QString& path,
                                                            std::shared_ptr<const ManagedObjectModel> model) {
    const QString directory = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(directory))
        return std::unexpected(StoreError{StoreError::Kind::CannotOpen,
                                          QStringLiteral("the folder %1 cannot be made").arg(directory)});
    auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadWrite);
    if (!connection) return std::unexpected(connection.error());
    std::unique_ptr<SqliteStore> store(new SqliteStore(std::move(*connection), std::move(model)));
    STORE_TRY(store->prepareFile());
    return store;
}

StoreResult<void> SqliteStore::prepareFile() {
    auto id = m_connection->scalar(QStringLiteral("PRAGMA application_id"));
    if (!id) return std::unexpected(id.error());
    auto tables = m_connection->scalar(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!tables) return std::unexpected(tables.error());
    auto version = m_connection->scalar(QStringLiteral("PRAGMA user_version"));
    if (!version) return std::unexpected(version.error());

    const bool isNew = tables->toInt() == 0 && id->toInt() == 0;
    if (!isNew && id->toInt() != applicationId)
        return std::unexpected(StoreError{StoreError::Kind::NotADatabase,
                                          QStringLiteral("the file belongs to another program")});
    if (version->toInt() > fileVersion)
        return std::unexpected(
            StoreError{StoreError::Kind::TooNew, QStringLiteral("the store was written by a newer version")});

    // Rollback journal, for a store that several connections may share. EXTRA also syncs the folder after the
    // journal's removal, so that a commit cannot be undone by a power cut.
    STORE_TRY(m_connection->setPragma(QStringLiteral("journal_mode"), QStringLiteral("delete")));
    STORE_TRY(m_connection->setPragma(QStringLiteral("synchronous"), 3));
    STORE_TRY(m_connection->setPragma(QStringLiteral("foreign_keys"), 1));
    if (isNew) return createSchema();

    auto check = m_connection->scalar(QStringLiteral("PRAGMA quick_check(1)"));
    if (!check) return std::unexpected(check.error());
    if (check->toString() != QStringLiteral("ok"))
        return std::unexpected(StoreError{StoreError::Kind::Corrupt, check->toString()});
    auto hash = readModelHash(*m_connection);
    if (!hash) return std::unexpected(hash.error());
    if (*hash != m_model->versionHash())
        return std::unexpected(
            StoreError{StoreError::Kind::Incompatible, QStringLiteral("the store has another model")});
    return {};
}

StoreResult<void> SqliteStore::createSchema() {
    return m_connection->transaction([this]() -> StoreResult<void> {
        STORE_TRY(m_connection->run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId)));
        STORE_TRY(m_connection->run(QStringLiteral("PRAGMA user_version = %1").arg(fileVersion)));
        STORE_TRY(m_connection->run(
            QStringLiteral("CREATE TABLE \"_Metadata\" (key TEXT PRIMARY KEY NOT NULL, value ANY) STRICT")));
        STORE_TRY(m_connection->run(QStringLiteral("INSERT INTO \"_Metadata\" VALUES ('modelHash', ?)"),
                                    {m_model->versionHash()}));
        for (const auto& entity : m_model->entities()) {
            QStringList columns{QStringLiteral("\"_id\" BLOB PRIMARY KEY NOT NULL")};
            for (const auto& attribute : entity.attributes)
                columns += QStringLiteral("%1 %2%3").arg(
                    quoted(attribute.name), columnType(attribute.type),
                    attribute.presence == Presence::Required ? QStringLiteral(" NOT NULL") : QString());
            for (const auto& relationship : entity.relationships)
                if (isToOne(relationship))
                    columns += QStringLiteral("%1 BLOB REFERENCES %2 DEFERRABLE INITIALLY DEFERRED")
                                   .arg(quoted(relationship.name), quoted(relationship.destination));
            STORE_TRY(m_connection->run(QStringLiteral("CREATE TABLE %1 (%2) STRICT")
                                            .arg(quoted(entity.name), columns.join(QStringLiteral(", ")))));
            for (const auto& relationship : entity.relationships) {
                if (isToOne(relationship)) {
                    // Without it every delete at the other end scans this table for its foreign key.
                    STORE_TRY(m_connection->run(QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
                                                    .arg(quoted(entity.name + u'_' + relationship.name),
                                                         quoted(entity.name), quoted(relationship.name))));
                    continue;
                }
                if (!ownsJoinTable(*m_model, entity, relationship)) continue;
                const QString table = joinTable(entity, relationship);
                STORE_TRY(m_connection->run(
                    QStringLiteral(
                        "CREATE TABLE %1 (source BLOB NOT NULL REFERENCES %2 DEFERRABLE INITIALLY "
                        "DEFERRED, target BLOB NOT NULL REFERENCES %3 DEFERRABLE INITIALLY DEFERRED, "
                        "PRIMARY KEY (source, target)) STRICT, WITHOUT ROWID")
                        .arg(quoted(table), quoted(entity.name), quoted(relationship.destination))));
                STORE_TRY(
                    m_connection->run(QStringLiteral("CREATE INDEX %1 ON %2 (target)")
                                          .arg(quoted(table + QStringLiteral("_target")), quoted(table))));
            }
        }
        return {};
    });
}

bool SqliteStore::ownsJoinTable(const ManagedObjectModel& model, const EntityDescription& entity,
                                const RelationshipDescription& relationship) {
    if (relationship.cardinality != Cardinality::ToMany) return false;
    const auto& inverse = model.inverseOf(relationship);
    if (inverse.cardinality != Cardinality::ToMany) return false;
    return std::pair(entity.name, relationship.name) <= std::pair(relationship.destination, inverse.name);
}

QString SqliteStore::joinTable(const EntityDescription& entity, const RelationshipDescription& relationship) {
    return QStringLiteral("_%1_%2").arg(entity.name, relationship.name);
}

StoreResult<void> SqliteStore::readRows(const EntityDescription& entity,
                                        const std::function<void(Row)>& each) {
    QStringList names{quoted(QStringLiteral("_id"))};
    const auto columns = columnsOf(entity);
    for (const auto& column : columns)
        names += column.name;
    const auto attributes = entity.attributes.size();
    return m_connection->query(
        QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(names.join(u','), quoted(entity.name)),
        [&](const QSqlQuery& query) {
            Row row;
            row.objectID = QUuid::fromRfc4122(query.value(0).toByteArray());
            row.values.resize(attributes);
            row.toOne.resize(entity.relationships.size());
            for (std::size_t i = 0; i < columns.size(); ++i) {
                const QVariant value = query.value(static_cast<int>(i) + 1);
                const auto index = static_cast<std::size_t>(columns[i].index);
                if (index < attributes)
                    row.values[index] = fromColumn(entity.attributes[index].type, value);
                else
                    row.toOne[index - attributes] = QUuid::fromRfc4122(value.toByteArray());
            }
            each(std::move(row));
        });
}

StoreResult<void> SqliteStore::readJoins(const EntityDescription& entity,
                                         const RelationshipDescription& relationship,
                                         const std::function<void(const QUuid&, const QUuid&)>& each) {
    return m_connection->query(
        QStringLiteral("SELECT source, target FROM %1").arg(quoted(joinTable(entity, relationship))),
        [&](const QSqlQuery& query) {
            each(QUuid::fromRfc4122(query.value(0).toByteArray()),
                 QUuid::fromRfc4122(query.value(1).toByteArray()));
        });
}

StoreResult<void> SqliteStore::commit(const StoreChanges& changes) {
    if (changes.isEmpty()) return {};
    return m_connection->transaction([&] { return write(changes); });
}

StoreResult<void> SqliteStore::write(const StoreChanges& changes) {
    for (const auto* object : changes.inserted)
        STORE_TRY(insertRow(*object));
    for (const auto& [object, columns] : changes.updated)
        STORE_TRY(updateRow(*object, columns));
    for (const auto& row : changes.parted)
        STORE_TRY(m_connection->run(
            QStringLiteral("DELETE FROM %1 WHERE source = ? AND target = ?").arg(quoted(row.table)),
            {row.source.toRfc4122(), row.target.toRfc4122()}));
    for (const auto& row : changes.joined)
        STORE_TRY(
            m_connection->run(QStringLiteral("INSERT OR IGNORE INTO %1 VALUES (?, ?)").arg(quoted(row.table)),
                              {row.source.toRfc4122(), row.target.toRfc4122()}));
    for (const auto* object : changes.deleted)
        STORE_TRY(m_connection->run(
            QStringLiteral("DELETE FROM %1 WHERE \"_id\" = ?").arg(quoted(object->entity().name)),
            {idColumn(object)}));
    return {};
}

StoreResult<void> SqliteStore::insertRow(const ManagedObject& object) {
    QStringList names{quoted(QStringLiteral("_id"))};
    QStringList marks{QStringLiteral("?")};
    QVariantList values{idColumn(&object)};
    for (const auto& column : columnsOf(object.entity())) {
        names += column.name;
        marks += QStringLiteral("?");
        values += columnValue(object, column.index);
    }
    return m_connection->run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                 .arg(quoted(object.entity().name), names.join(u','), marks.join(u',')),
                             values);
}

StoreResult<void> SqliteStore::updateRow(const ManagedObject& object, const QSet<qsizetype>& columns) {
    QStringList assignments;
    QVariantList values;
    for (const auto& column : columnsOf(object.entity())) {
        if (!columns.contains(column.index)) continue;
        assignments += column.name + QStringLiteral(" = ?");
        values += columnValue(object, column.index);
    }
    values += idColumn(&object);
    return m_connection->run(QStringLiteral("UPDATE %1 SET %2 WHERE \"_id\" = ?")
                                 .arg(quoted(object.entity().name), assignments.join(u',')),
                             values);
}

} // namespace platform
