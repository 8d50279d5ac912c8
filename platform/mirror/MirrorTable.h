#pragma once

#include "platform/mirror/MirrorStorage.h"
#include "platform/store/SqliteConnection.h"

namespace platform {

// The mirror's own tables in a store's file, as StoreSchema.h tells them. Inside the transactions of its
// connection.
class MirrorTable {
public:
    explicit MirrorTable(SqliteConnection& connection)
        : m_connection(&connection) {}

    // As the entry has it: without the values of attributes that are in the object's row. A damaged entry
    // counts as none, so that it can be made anew.
    StoreResult<std::optional<MirroredObject>> read(const QUuid& id);
    StoreResult<void> write(const QUuid& id, const MirroredObject& object);
    StoreResult<void> remove(const QUuid& id);

    // False where there is no entry.
    StoreResult<bool> isDead(const QUuid& id);
    // Of the entries that `clauses` choose, in their order.
    StoreResult<std::vector<QUuid>> select(const QString& clauses, const QVariantList& values = {});

    StoreResult<std::vector<QUuid>> all() { return select(QStringLiteral("ORDER BY id")); }

    StoreResult<std::vector<QUuid>> linkSources(const QUuid& target);
    StoreResult<std::vector<QUuid>> linkTargets(const QUuid& source);
    StoreResult<void> addLink(const QUuid& source, const QUuid& target);
    StoreResult<void> removeLink(const QUuid& source, const QUuid& target);
    StoreResult<void> removeLinksOf(const QUuid& source);
    // From the rows that a query of one column yields.
    StoreResult<void> addLinks(const QString& sources, const QUuid& target);

    // Progress of a file that never had any has a null device.
    StoreResult<MirrorProgress> progress();
    StoreResult<void> setProgress(const MirrorProgress& progress);

    // Who writes, and when it wrote last: two of the progress by themselves, for every save needs them.
    StoreResult<Stamp> clock();
    StoreResult<void> setClock(std::uint64_t time);
    StoreResult<void> setDevice(const QUuid& device);

    // The first of the next `count` numbers.
    StoreResult<qint64> nextChanges(qint64 count);

    // Objects that a save has brought into the user's view, or taken out of it, in a way that others have to
    // follow; the next transaction of the mirror sees to it.
    StoreResult<std::vector<QUuid>> unsettled();
    StoreResult<void> addUnsettled(const QUuid& id);
    StoreResult<void> clearUnsettled();

    // The hash of the model that the rows were brought up to date with last.
    StoreResult<QByteArray> modelHash();
    StoreResult<void> setModelHash(const QByteArray& hash);

private:
    StoreResult<QVariant> value(const QString& key);
    StoreResult<void> setValue(const QString& key, const QVariant& value);

    SqliteConnection* m_connection;
};

// The identities in the first column of a query's rows.
StoreResult<std::vector<QUuid>> identities(SqliteConnection& connection, const QString& sql,
                                           const QVariantList& values);

} // namespace platform
