#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/SqliteConnection.h"
#include "platform/store/StoreError.h"
#include "platform/store/StoreMetadata.h"

#include <QtCore/QUuid>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

class ChangeCapture;
class ManagedObject;

// One object as stored, without the values that are loaded on demand.
struct StoreRow {
    const EntityDescription* entity = nullptr;
    QUuid objectID;
    std::vector<QVariant> values;
    std::vector<QUuid> toOne; // one a relationship, null for to-many and for absent
};

// One membership of a many-to-many relationship, seen from the end that owns the join table.
struct JoinRow {
    const RelationshipDescription* relationship = nullptr; // of the source
    QUuid source;
    QUuid target;

    bool operator==(const JoinRow&) const = default;
};

size_t qHash(const JoinRow& row, size_t seed = 0);

// What other connections have written. `joins` is the whole membership of every owner among the rows.
struct RemoteChanges {
    std::vector<StoreRow> rows;
    std::vector<JoinRow> joins;
    std::vector<QUuid> deleted;
};

// What a save writes. A membership with a deleted end goes with it and needs no entry.
struct StoreChanges {
    std::vector<const ManagedObject*> inserted; // written whole, also over a row that is there
    std::vector<std::pair<const ManagedObject*, ColumnSet>> updated;
    std::vector<const ManagedObject*> deleted;
    std::vector<JoinRow> joined;
    std::vector<JoinRow> parted;

    bool isEmpty() const;
};

// The SQLite file behind a context, in the tables of StoreSchema.h.
//
// A rollback journal with synchronous=EXTRA: what a commit returned from survives the process and the
// machine. Several connections may share the file; each learns what the others wrote by the revision of the
// rows. One thread.
class SqliteStore {
public:
    // Whether a store of another model is migrated, if the mapping can be inferred.
    enum class Migration { Refuse, Infer };

    // Reads the metadata of an existing store file. Finishes what a crash left half done, else changes
    // nothing.
    static StoreResult<StoreMetadata> metadata(const QString& path);

    // Opens the file, or makes a new store where there is none. A file that it refuses is left as it was, and
    // before a migration a verified copy is made beside it.
    static StoreResult<std::unique_ptr<SqliteStore>> open(const QString& path,
                                                          std::shared_ptr<const ManagedObjectModel> model,
                                                          Migration migration = Migration::Refuse);

    SqliteStore(const SqliteStore&) = delete;
    SqliteStore& operator=(const SqliteStore&) = delete;

    const QString& path() const { return m_path; }

    // Tells `capture` of every commit from now on. To be called before readAll().
    StoreResult<void> setCapture(std::shared_ptr<ChangeCapture> capture);

    // Reads all objects and then all memberships, on one state of the file.
    StoreResult<void> readAll(const std::function<void(StoreRow)>& eachRow,
                              const std::function<void(const JoinRow&)>& eachJoin);

    // One value of one object. Error: Missing where the object is gone.
    StoreResult<QVariant> readValue(const EntityDescription& entity, qsizetype attribute,
                                    const QUuid& objectID);

    // As of the connection.
    StoreResult<void> setPatience(SqliteConnection::Patience patience) {
        return m_connection->setPatience(patience);
    }

    // Tells `merge` what others committed since this store last looked, if anything, on the state of the file
    // that it was read from. Fails with Busy at once instead of waiting.
    StoreResult<void> readRemoteChanges(const std::function<void(const RemoteChanges&)>& merge);

    // One transaction, all or nothing. If others have committed since this store last looked, `merge` is told
    // what before `changes` is asked what to write; that holds also where the commit fails in the end.
    StoreResult<void> commit(const std::function<void(const RemoteChanges&)>& merge,
                             const std::function<StoreChanges()>& changes);

private:
    SqliteStore(QString path, std::unique_ptr<SqliteConnection> connection,
                std::shared_ptr<const ManagedObjectModel> model);

    StoreResult<void> prepareFile(Migration migration);
    StoreResult<void> checkWhole();
    StoreResult<void> createTables();
    StoreResult<void> migrateIfNeeded(Migration migration);

    StoreResult<qint64> revision();
    StoreResult<void> readRows(const EntityDescription& entity, qint64 after,
                               const std::function<void(StoreRow)>& each);
    StoreResult<RemoteChanges> changesAfter(qint64 revision);

    StoreResult<void> write(const StoreChanges& changes, qint64 revision);
    StoreResult<void> insertRow(const ManagedObject& object, qint64 revision);
    StoreResult<void> updateRow(const EntityDescription& entity, const QUuid& objectID,
                                QStringList assignments, QVariantList values, qint64 revision);
    StoreResult<void> writeJoins(const StoreChanges& changes, qint64 revision);
    StoreResult<void> deleteRow(const ManagedObject& object, qint64 revision);

    QString m_path;
    std::unique_ptr<SqliteConnection> m_connection;
    std::shared_ptr<const ManagedObjectModel> m_model;
    QHash<const RelationshipDescription*, const EntityDescription*> m_joinOwner;
    std::shared_ptr<ChangeCapture> m_capture;
    qint64 m_seenRevision = 0; // everything up to it is known to the context, or its own
};

} // namespace platform
