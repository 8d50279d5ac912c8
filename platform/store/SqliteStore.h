#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/SqliteConnection.h"
#include "platform/store/StoreError.h"

#include <QtCore/QSet>
#include <QtCore/QUuid>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

class ManagedObject;

// One membership of a many-to-many relationship, seen from the end that owns the join table.
struct JoinRow {
    QString table;
    QUuid source;
    QUuid target;

    bool operator==(const JoinRow&) const = default;
};

size_t qHash(const JoinRow& row, size_t seed = 0);

// What a save writes. Columns are the entity's attributes by index, followed by its to-one relationships at
// attributes.size() + relationship index.
struct StoreChanges {
    std::vector<const ManagedObject*> inserted;
    std::vector<std::pair<const ManagedObject*, QSet<qsizetype>>> updated;
    std::vector<const ManagedObject*> deleted;
    std::vector<JoinRow> joined;
    std::vector<JoinRow> parted;

    bool isEmpty() const;
};

struct StoreMetadata {
    QByteArray modelHash;
};

// The SQLite file behind a context.
//
// One table an entity, keyed by object id; one column an attribute and a to-one relationship; one join table
// a pair of to-many relationships. Text that SQLite would alter (lone surrogates, NUL) is kept as bytes of
// generalized UTF-8 in the same column. A rollback journal with synchronous=EXTRA: what a commit returned
// from survives the process and the machine. One thread.
class SqliteStore {
public:
    struct Row {
        QUuid objectID;
        std::vector<QVariant> values;
        std::vector<QUuid> toOne; // one a relationship, null for to-many and for absent
    };

    // Reads the metadata of an existing store file without changing the file.
    static StoreResult<StoreMetadata> metadata(const QString& path);

    // Opens the file, or makes a new store where there is none. Never alters a file that it refuses.
    static StoreResult<std::unique_ptr<SqliteStore>> open(const QString& path,
                                                          std::shared_ptr<const ManagedObjectModel> model);

    SqliteStore(const SqliteStore&) = delete;
    SqliteStore& operator=(const SqliteStore&) = delete;

    StoreResult<void> readRows(const EntityDescription& entity, const std::function<void(Row)>& each);
    StoreResult<void> readJoins(const EntityDescription& entity, const RelationshipDescription& relationship,
                                const std::function<void(const QUuid&, const QUuid&)>& each);

    // All or nothing, in one transaction.
    StoreResult<void> commit(const StoreChanges& changes);

    // Whether the join table of a pair of to-many relationships belongs to this end of it.
    static bool ownsJoinTable(const ManagedObjectModel& model, const EntityDescription& entity,
                              const RelationshipDescription& relationship);
    static QString joinTable(const EntityDescription& entity, const RelationshipDescription& relationship);

private:
    SqliteStore(std::unique_ptr<SqliteConnection> connection,
                std::shared_ptr<const ManagedObjectModel> model);

    StoreResult<void> prepareFile();
    StoreResult<void> createSchema();
    StoreResult<void> write(const StoreChanges& changes);
    StoreResult<void> insertRow(const ManagedObject& object);
    StoreResult<void> updateRow(const ManagedObject& object, const QSet<qsizetype>& columns);

    std::unique_ptr<SqliteConnection> m_connection;
    std::shared_ptr<const ManagedObjectModel> m_model;
};

} // namespace platform
