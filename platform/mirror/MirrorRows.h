#pragma once

#include "platform/mirror/MirrorShape.h"
#include "platform/store/SqliteConnection.h"

#include <QtCore/QUuid>

#include <optional>
#include <set>

namespace platform {

// The columns of an object's row by their numbers (StoreSchema.h); those of to-many relationships are unused.
using MirrorRow = std::vector<QVariant>;

// The rows of the entities' tables. Every row that is written gets the revision of the transaction, which is
// the store's next one and begins with the first row. One transaction long.
class MirrorRows {
public:
    explicit MirrorRows(SqliteConnection& connection)
        : m_connection(&connection) {}

    // Of a quoted table.
    StoreResult<bool> isThere(const QString& table, const QUuid& id);

    // Nothing where there is no row. Columns that were not asked for are null.
    StoreResult<std::optional<MirrorRow>> read(const EntityShape& shape, const QUuid& id,
                                               const ColumnSet& columns = ColumnSet().set());
    StoreResult<void> insert(const EntityShape& shape, const QUuid& id, const MirrorRow& row);
    // Writes the columns that differ.
    StoreResult<void> update(const EntityShape& shape, const QUuid& id, const MirrorRow& before,
                             const MirrorRow& after);
    // With its memberships.
    StoreResult<void> remove(const EntityShape& shape, const QUuid& id);

    StoreResult<std::set<QUuid>> members(const EntityShape::Set& set, const QUuid& source);
    // A change of them counts as one of the source's row.
    StoreResult<void> setMembers(const EntityShape& shape, const EntityShape::Set& set, const QUuid& source,
                                 const std::set<QUuid>& members);

    // Queries of one column, "source", for what refers to an object, which is their one value.
    static QStringList referrerQueries(const EntityShape& shape);
    static QString referrerQuery(const EntityShape::Referrer& referrer);

    // The objects whose rows refer to this one, by a reference or a membership.
    StoreResult<std::vector<QUuid>> referrers(const EntityShape& shape, const QUuid& id);
    // Of one relationship.
    StoreResult<std::vector<QUuid>> referrers(const EntityShape::Referrer& referrer, const QUuid& id);

private:
    StoreResult<qint64> revision();

    SqliteConnection* m_connection;
    std::optional<qint64> m_revision;
};

} // namespace platform
