#pragma once

#include "platform/cloud/SqlConnection.h"

namespace platform {

// The records of a zone as rows, and which assets they use. The writers run inside a transaction that holds
// the user's head, so that nobody else writes the same user's rows.
class SqlRecords {
public:
    SqlRecords(SqlConnection& connection, QString zone);

    // At most `limit` records after the position, in order of (revision, name).
    CloudResult<std::vector<ZoneRecord>> after(const ZonePosition& position, int limit);
    // Those of a type that are no tombstones, in order of their names.
    CloudResult<std::vector<ZoneRecord>> ofType(const QString& type);

    // Puts the records in place of whatever has their names, and keeps the assets with them. InvalidArguments
    // for a record with an asset that is neither given nor there.
    CloudResult<void> write(const std::vector<ZoneRecord>& records, const std::vector<CloudAsset>& assets,
                            qint64 revision);
    // Removes those of the names that are tombstones.
    CloudResult<void> collect(const std::vector<QString>& names);

private:
    CloudResult<std::vector<ZoneRecord>> select(const QString& condition, const QVariantList& values);
    CloudResult<void> addAssets(std::vector<ZoneRecord>& records);
    // Gives the assets that the records of these names have used, each once or more.
    CloudResult<std::vector<QByteArray>> dropUses(const std::vector<QString>& names);
    CloudResult<void> addUses(const std::vector<ZoneRecord>& records);
    CloudResult<void> dropUnused(const std::vector<QByteArray>& hashes);

    SqlConnection& m_connection;
    QString m_zone;
};

} // namespace platform
