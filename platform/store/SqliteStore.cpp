#include "platform/store/SqliteStore.h"

#include "platform/foundation/DatedFile.h"
#include "platform/store/ChangeCapture.h"
#include "platform/store/ManagedObject.h"
#include "platform/store/ObjectColumns.h"
#include "platform/store/StoreMigration.h"
#include "platform/store/StorePragmas.h"
#include "platform/store/StoreSchema.h"
#include "platform/store/StoredValue.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace platform {

namespace {

// Of a new file. A text of the usual length fits into a page together with others.
constexpr int pageBytes = 8192;

bool isOnDemand(const EntityDescription& entity, qsizetype column) {
    const auto index = static_cast<std::size_t>(column);
    return index < entity.attributes.size() && entity.attributes[index].loading == Loading::OnDemand;
}

StoreRow rowFrom(const QSqlQuery& query, const EntityDescription& entity,
                 const std::vector<StoredColumn>& columns) {
    const auto attributes = entity.attributes.size();
    StoreRow row{&entity, idFromColumn(query.value(0)), std::vector<QVariant>(attributes),
                 std::vector<QUuid>(entity.relationships.size())};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const QVariant value = query.value(static_cast<int>(i) + 1);
        const auto index = static_cast<std::size_t>(columns[i].index);
        if (index < attributes)
            row.values[index] = fromColumn(entity.attributes[index].type, value);
        else
            row.toOne[index - attributes] = idFromColumn(value);
    }
    return row;
}

} // namespace

size_t qHash(const JoinRow& row, size_t seed) {
    return qHashMulti(seed, row.relationship, row.source, row.target);
}

bool StoreChanges::isEmpty() const {
    return inserted.empty() && updated.empty() && deleted.empty() && joined.empty() && parted.empty();
}

SqliteStore::SqliteStore(QString path, std::unique_ptr<SqliteConnection> connection,
                         std::shared_ptr<const ManagedObjectModel> model)
    : m_path(std::move(path))
    , m_connection(std::move(connection))
    , m_model(std::move(model)) {
    for (const auto& entity : m_model->entities())
        for (const auto& relationship : entity.relationships)
            if (ownsJoinTable(m_model->entities(), entity, relationship))
                m_joinOwner.insert(&relationship, &entity);
}

StoreResult<StoreMetadata> SqliteStore::metadata(const QString& path) {
    auto connection = SqliteConnection::open(path, SqliteConnection::Access::Existing);
    if (!connection) return std::unexpected(connection.error());
    return readMetadata(**connection);
}

StoreResult<std::unique_ptr<SqliteStore>>
SqliteStore::open(const QString& path, std::shared_ptr<const ManagedObjectModel> model, Migration migration) {
    const QString directory = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(directory))
        return std::unexpected(StoreError{StoreError::Kind::CannotOpen,
                                          QStringLiteral("the folder %1 cannot be made").arg(directory)});
    auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadWrite);
    if (!connection) return std::unexpected(connection.error());
    std::unique_ptr<SqliteStore> store(new SqliteStore(path, std::move(*connection), std::move(model)));
    STORE_TRY(store->prepareFile(migration));
    return store;
}

StoreResult<void> SqliteStore::prepareFile(Migration migration) {
    bool isNew = false;
    // On one state of the file: between two reads another program may make the tables.
    STORE_TRY(m_connection->readTransaction([&]() -> StoreResult<void> {
        const auto blank = isBlank(*m_connection);
        if (!blank) return std::unexpected(blank.error());
        isNew = *blank;
        return {};
    }));
    if (isNew) STORE_TRY(m_connection->setPragma(QStringLiteral("page_size"), pageBytes));
    STORE_TRY(setStorePragmas(*m_connection));
    if (isNew) STORE_TRY(createTables());
    STORE_TRY(checkWhole());
    return migrateIfNeeded(migration);
}

StoreResult<void> SqliteStore::checkWhole() {
    auto check = m_connection->scalar(QStringLiteral("PRAGMA quick_check(1)"));
    if (!check) return std::unexpected(check.error());
    if (check->toString() != QStringLiteral("ok"))
        return std::unexpected(StoreError{StoreError::Kind::Corrupt, check->toString()});
    // SQLite reads what is missing of the last page as zeros.
    auto size = m_connection->scalar(
        QStringLiteral("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size"));
    if (!size) return std::unexpected(size.error());
    if (QFileInfo(m_path).size() < size->toLongLong())
        return std::unexpected(
            StoreError{StoreError::Kind::Corrupt, QStringLiteral("the end of the file is missing")});
    return {};
}

StoreResult<void> SqliteStore::createTables() {
    return m_connection->transaction([this]() -> StoreResult<void> {
        // Again under the lock: two programs may meet at a new file.
        const auto blank = isBlank(*m_connection);
        if (!blank) return std::unexpected(blank.error());
        if (!*blank) return {};
        STORE_TRY(markFile(*m_connection));
        for (const auto& statement : commonTables() + tablesOf(m_model->entities()))
            STORE_TRY(m_connection->run(statement));
        STORE_TRY(m_connection->run(QStringLiteral("INSERT INTO \"_Metadata\" VALUES ('revision', 0)")));
        return writeMetadata(*m_connection, *m_model);
    });
}

StoreResult<void> SqliteStore::migrateIfNeeded(Migration migration) {
    auto metadata = readMetadata(*m_connection);
    if (!metadata) return std::unexpected(metadata.error());
    if (metadata->modelVersion > m_model->version())
        return std::unexpected(
            StoreError{StoreError::Kind::TooNew, QStringLiteral("the store was written by a newer version")});
    if (metadata->modelHash == m_model->versionHash()) {
        // A file that may not be written is shown as it is.
        auto upgraded = upgradeFile(*m_connection, *metadata);
        if (!upgraded && upgraded.error().kind != StoreError::Kind::ReadOnly) return upgraded;
        return {};
    }
    if (migration == Migration::Refuse)
        return std::unexpected(
            StoreError{StoreError::Kind::Incompatible, QStringLiteral("the store has another model")});
    const auto mapping = MappingModel::infer(metadata->entities, m_model->entities());
    if (!mapping) return std::unexpected(StoreError{StoreError::Kind::Incompatible, mapping.error()});
    STORE_TRY(copyVerified(*m_connection, datedBeside(m_path)));
    STORE_TRY(upgradeFile(*m_connection, *metadata));
    return migrate(*m_connection, *metadata, *m_model, *mapping);
}

StoreResult<void> SqliteStore::setCapture(std::shared_ptr<ChangeCapture> capture) {
    auto begun = m_connection->transaction([&] { return capture->begin(*m_connection); });
    // A file that may not be written is shown all the same; nothing can be saved into it.
    if (!begun && begun.error().kind != StoreError::Kind::ReadOnly) return begun;
    m_capture = std::move(capture);
    return {};
}

StoreResult<qint64> SqliteStore::revision() {
    auto revision = storeRevision(*m_connection);
    if (!revision || *revision >= m_seenRevision) return revision;
    return std::unexpected(
        StoreError{StoreError::Kind::Corrupt, QStringLiteral("the store's revision went back")});
}

StoreResult<void> SqliteStore::readRows(const EntityDescription& entity, qint64 after,
                                        const std::function<void(StoreRow)>& each) {
    auto columns = columnsOf(entity);
    std::erase_if(columns, [&](const StoredColumn& column) { return isOnDemand(entity, column.index); });
    QStringList names{quoted(QStringLiteral("_id"))};
    for (const auto& column : columns)
        names += column.name;
    const QString select =
        QStringLiteral("SELECT %1 FROM %2").arg(names.join(u','), quoted(entity.name)) +
        (after < 0 ? QStringLiteral(" ORDER BY rowid") : QStringLiteral(" WHERE \"_rev\" > ?"));
    bool isDamaged = false;
    STORE_TRY(m_connection->query(select, after < 0 ? QVariantList() : QVariantList{after},
                                  [&](const QSqlQuery& query) {
                                      auto row = rowFrom(query, entity, columns);
                                      isDamaged = isDamaged || row.objectID.isNull();
                                      each(std::move(row));
                                  }));
    if (!isDamaged) return {};
    return std::unexpected(
        StoreError{StoreError::Kind::Corrupt, QStringLiteral("an object has no identity")});
}

StoreResult<void> SqliteStore::readAll(const std::function<void(StoreRow)>& eachRow,
                                       const std::function<void(const JoinRow&)>& eachJoin) {
    return m_connection->readTransaction([&]() -> StoreResult<void> {
        auto current = revision();
        if (!current) return std::unexpected(current.error());
        for (const auto& entity : m_model->entities())
            STORE_TRY(readRows(entity, -1, eachRow));
        for (const auto& [relationship, owner] : m_joinOwner.asKeyValueRange()) {
            STORE_TRY(m_connection->query(
                QStringLiteral("SELECT source, target FROM ") + quoted(joinTable(*owner, *relationship)), {},
                [&](const QSqlQuery& query) {
                    eachJoin({relationship, idFromColumn(query.value(0)), idFromColumn(query.value(1))});
                }));
        }
        m_seenRevision = *current;
        return {};
    });
}

StoreResult<QVariant> SqliteStore::readValue(const EntityDescription& entity, qsizetype attribute,
                                             const QUuid& objectID) {
    const auto& description = entity.attributes[static_cast<std::size_t>(attribute)];
    std::optional<QVariant> value;
    STORE_TRY(m_connection->query(QStringLiteral("SELECT %1 FROM %2 WHERE \"_id\" = ?")
                                      .arg(quoted(description.name), quoted(entity.name)),
                                  {idToColumn(objectID)}, [&](const QSqlQuery& query) {
                                      value = fromColumn(description.type, query.value(0));
                                  }));
    if (value) return *value;
    return std::unexpected(
        StoreError{StoreError::Kind::Missing, QStringLiteral("the object is no longer in the store")});
}

StoreResult<RemoteChanges> SqliteStore::changesAfter(qint64 revision) {
    RemoteChanges changes;
    for (const auto& entity : m_model->entities())
        STORE_TRY(readRows(entity, revision, [&](StoreRow row) { changes.rows.push_back(std::move(row)); }));
    for (const auto& [relationship, owner] : m_joinOwner.asKeyValueRange())
        STORE_TRY(m_connection->query(
            QStringLiteral("SELECT j.source, j.target FROM %1 j JOIN %2 o ON o.\"_id\" = j.source "
                           "WHERE o.\"_rev\" > ?")
                .arg(quoted(joinTable(*owner, *relationship)), quoted(owner->name)),
            {revision}, [&](const QSqlQuery& query) {
                changes.joins.push_back(
                    {relationship, idFromColumn(query.value(0)), idFromColumn(query.value(1))});
            }));
    STORE_TRY(m_connection->query(
        QStringLiteral("SELECT id FROM \"_Deleted\" WHERE rev > ?"), {revision},
        [&](const QSqlQuery& query) { changes.deleted.push_back(idFromColumn(query.value(0))); }));
    return changes;
}

StoreResult<void> SqliteStore::readRemoteChanges(const std::function<void(const RemoteChanges&)>& merge) {
    STORE_TRY(m_connection->setPatience(SqliteConnection::Patience::None));
    auto result = m_connection->readTransaction([&]() -> StoreResult<void> {
        auto current = revision();
        if (!current) return std::unexpected(current.error());
        if (*current == m_seenRevision) return {};
        auto changes = changesAfter(m_seenRevision);
        if (!changes) return std::unexpected(changes.error());
        merge(*changes);
        m_seenRevision = *current;
        return {};
    });
    auto patient = m_connection->setPatience(SqliteConnection::Patience::Normal);
    return result ? patient : result;
}

StoreResult<void> SqliteStore::commit(const std::function<void(const RemoteChanges&)>& merge,
                                      const std::function<StoreChanges()>& changes) {
    qint64 written = 0;
    auto result = m_connection->transaction([&]() -> StoreResult<void> {
        auto current = revision();
        if (!current) return std::unexpected(current.error());
        if (*current != m_seenRevision) {
            auto others = changesAfter(m_seenRevision);
            if (!others) return std::unexpected(others.error());
            merge(*others);
            m_seenRevision = *current;
        }
        written = *current;
        const StoreChanges toWrite = changes();
        if (toWrite.isEmpty()) return {};
        if (m_capture) STORE_TRY(m_capture->capture(*m_connection, toWrite));
        ++written;
        STORE_TRY(setStoreRevision(*m_connection, written));
        return write(toWrite, written);
    });
    if (result) m_seenRevision = written;
    return result;
}

StoreResult<void> SqliteStore::write(const StoreChanges& changes, qint64 revision) {
    for (const auto* object : changes.inserted)
        STORE_TRY(insertRow(*object, revision));
    for (const auto& [object, columns] : changes.updated) {
        QStringList assignments;
        QVariantList values;
        for (const auto& column : columnsOf(object->entity())) {
            if (!columns.test(static_cast<std::size_t>(column.index))) continue;
            auto value = columnValue(*object, column.index);
            if (!value) return std::unexpected(value.error());
            assignments += column.name + QStringLiteral(" = ?");
            values += *value;
        }
        STORE_TRY(updateRow(object->entity(), object->objectID(), std::move(assignments), std::move(values),
                            revision));
    }
    STORE_TRY(writeJoins(changes, revision));
    for (const auto* object : changes.deleted)
        STORE_TRY(deleteRow(*object, revision));
    return {};
}

StoreResult<void> SqliteStore::insertRow(const ManagedObject& object, qint64 revision) {
    QStringList names{quoted(QStringLiteral("_id")), quoted(QStringLiteral("_rev"))};
    QStringList marks{QStringLiteral("?"), QStringLiteral("?")};
    QStringList assignments{QStringLiteral("\"_rev\" = excluded.\"_rev\"")};
    QVariantList values{idToColumn(object.objectID()), revision};
    for (const auto& column : columnsOf(object.entity())) {
        names += column.name;
        marks += QStringLiteral("?");
        assignments += column.name + QStringLiteral(" = excluded.") + column.name;
        auto value = columnValue(object, column.index);
        if (!value) return std::unexpected(value.error());
        values += *value;
    }
    return m_connection->run(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) ON CONFLICT (\"_id\") DO UPDATE SET %4")
            .arg(quoted(object.entity().name), names.join(u','), marks.join(u','), assignments.join(u',')),
        values);
}

StoreResult<void> SqliteStore::updateRow(const EntityDescription& entity, const QUuid& objectID,
                                         QStringList assignments, QVariantList values, qint64 revision) {
    assignments += QStringLiteral("\"_rev\" = ?");
    values += revision;
    values += idToColumn(objectID);
    return m_connection->runOnOneRow(
        QStringLiteral("UPDATE %1 SET %2 WHERE \"_id\" = ?").arg(quoted(entity.name), assignments.join(u',')),
        values);
}

StoreResult<void> SqliteStore::writeJoins(const StoreChanges& changes, qint64 revision) {
    QHash<QUuid, const EntityDescription*> owners;
    const auto writeRow = [&](const JoinRow& row, const QString& statement) {
        const auto* owner = m_joinOwner.value(row.relationship);
        owners.insert(row.source, owner);
        return m_connection->run(statement.arg(quoted(joinTable(*owner, *row.relationship))),
                                 {idToColumn(row.source), idToColumn(row.target)});
    };
    for (const auto& row : changes.parted)
        STORE_TRY(writeRow(row, QStringLiteral("DELETE FROM %1 WHERE source = ? AND target = ?")));
    for (const auto& row : changes.joined)
        STORE_TRY(writeRow(row, QStringLiteral("INSERT OR IGNORE INTO %1 VALUES (?, ?)")));
    for (const auto& [id, entity] : owners.asKeyValueRange())
        STORE_TRY(updateRow(*entity, id, {}, {}, revision));
    return {};
}

StoreResult<void> SqliteStore::deleteRow(const ManagedObject& object, qint64 revision) {
    const QVariant id = idToColumn(object.objectID());
    for (const auto& [relationship, owner] : m_joinOwner.asKeyValueRange()) {
        const QString remove =
            QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(quoted(joinTable(*owner, *relationship)));
        if (owner == &object.entity())
            STORE_TRY(m_connection->run(remove.arg(QStringLiteral("source")), {id}));
        if (relationship->destination == object.entity().name)
            STORE_TRY(m_connection->run(remove.arg(QStringLiteral("target")), {id}));
    }
    STORE_TRY(m_connection->run(
        QStringLiteral("DELETE FROM %1 WHERE \"_id\" = ?").arg(quoted(object.entity().name)), {id}));
    return m_connection->run(QStringLiteral("INSERT OR REPLACE INTO \"_Deleted\" VALUES (?, ?)"),
                             {id, revision});
}

} // namespace platform
