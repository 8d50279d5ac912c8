#include "platform/cloud/SqlRecords.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/SqlValue.h"

#include <algorithm>
#include <map>
#include <set>

namespace platform {

namespace {

using Kind = SqlBatch::Kind;

SqlBatch batchOf(const QString& column, const std::vector<QString>& texts) {
    SqlBatch batch{{{column, Kind::Text}}, {}};
    for (const QString& text : texts)
        batch.rows.push_back({sqlValue(text)});
    return batch;
}

SqlBatch batchOf(const QString& column, const std::vector<QByteArray>& arrays) {
    SqlBatch batch{{{column, Kind::Bytes}}, {}};
    for (const QByteArray& array : arrays)
        batch.rows.push_back({sqlValue(array)});
    return batch;
}

SqlBatch batchOf(const std::vector<ZoneRecord>& records) {
    SqlBatch batch{{{QStringLiteral("name"), Kind::Text},
                    {QStringLiteral("type"), Kind::Text},
                    {QStringLiteral("tombstone"), Kind::Flag},
                    {QStringLiteral("payload"), Kind::Bytes}},
                   {}};
    for (const ZoneRecord& record : records)
        batch.rows.push_back(
            {sqlValue(record.name), sqlValue(record.type), record.isTombstone, sqlValue(record.payload)});
    return batch;
}

SqlBatch batchOf(const std::vector<CloudAsset>& assets) {
    SqlBatch batch{{{QStringLiteral("hash"), Kind::Bytes}, {QStringLiteral("content"), Kind::Bytes}}, {}};
    for (const CloudAsset& asset : assets)
        batch.rows.push_back({sqlValue(asset.hash), sqlValue(asset.content)});
    return batch;
}

// Every asset of every record once.
SqlBatch usesBatch(const std::vector<ZoneRecord>& records) {
    SqlBatch batch{{{QStringLiteral("name"), Kind::Text}, {QStringLiteral("hash"), Kind::Bytes}}, {}};
    for (const ZoneRecord& record : records)
        for (const QByteArray& hash : std::set(record.assets.begin(), record.assets.end()))
            batch.rows.push_back({sqlValue(record.name), sqlValue(hash)});
    return batch;
}

std::vector<QString> namesOf(const std::vector<ZoneRecord>& records) {
    std::vector<QString> names;
    std::ranges::transform(records, std::back_inserter(names), &ZoneRecord::name);
    return names;
}

std::unexpected<CKError> wrongCount(const QString& what) {
    return std::unexpected(CKError{CKError::Code::InternalError, what});
}

} // namespace

SqlRecords::SqlRecords(SqlConnection& connection, QString zone)
    : m_connection(connection)
    , m_zone(std::move(zone)) {}

CloudResult<std::vector<ZoneRecord>> SqlRecords::after(const ZonePosition& position, int limit) {
    // No name is empty, so everything of a revision comes after the empty one.
    const qint64 revision = position.name.isEmpty() ? position.revision + 1 : position.revision;
    return select(QStringLiteral("(revision, name) > (?, ?) ORDER BY revision, name LIMIT ?"),
                  {revision, sqlValue(position.name), limit});
}

CloudResult<std::vector<ZoneRecord>> SqlRecords::ofType(const QString& type) {
    return select(QStringLiteral("type = ? AND NOT tombstone ORDER BY name"), {sqlValue(type)});
}

CloudResult<std::vector<ZoneRecord>> SqlRecords::select(const QString& condition,
                                                        const QVariantList& values) {
    std::vector<ZoneRecord> records;
    const QString sql = QStringLiteral("SELECT name, type, revision, tombstone, payload FROM quillet_records"
                                       " WHERE owner = $owner AND zone = ? AND ");
    CLOUD_TRY(m_connection.query(sql + condition, QVariantList{sqlValue(m_zone)} + values,
                                 [&records](const QSqlQuery& row) {
                                     records.push_back({row.value(0).toString(),
                                                        row.value(1).toString(),
                                                        row.value(2).toLongLong(),
                                                        row.value(3).toBool(),
                                                        row.value(4).toByteArray(),
                                                        {}});
                                 }));
    CLOUD_TRY(addAssets(records));
    return records;
}

CloudResult<void> SqlRecords::addAssets(std::vector<ZoneRecord>& records) {
    std::map<QString, ZoneRecord*> byName;
    for (ZoneRecord& record : records)
        byName[record.name] = &record;
    return m_connection.queryBatch(
        QStringLiteral("SELECT name, hash FROM quillet_asset_uses WHERE owner = $owner AND zone = ?"
                       " AND name IN (SELECT name FROM $batch) ORDER BY name, hash"),
        {sqlValue(m_zone)}, batchOf(QStringLiteral("name"), namesOf(records)),
        [&byName](const QSqlQuery& row) {
            const auto record = byName.find(row.value(0).toString());
            if (record != byName.end()) record->second->assets.push_back(row.value(1).toByteArray());
        });
}

CloudResult<void> SqlRecords::write(const std::vector<ZoneRecord>& records,
                                    const std::vector<CloudAsset>& assets, qint64 revision) {
    CLOUD_TRY(m_connection.runBatch(
        QStringLiteral("INSERT INTO quillet_assets (owner, hash, content)"
                       " SELECT $owner, batch.hash, batch.content FROM $batch WHERE true"
                       " ON CONFLICT (owner, hash) DO NOTHING"),
        {}, batchOf(assets)));
    const auto rows = m_connection.runBatch(
        QStringLiteral(
            "INSERT INTO quillet_records (owner, zone, name, type, revision, tombstone, payload)"
            " SELECT $owner, CAST(? AS text), batch.name, batch.type, CAST(? AS bigint), batch.tombstone,"
            " batch.payload FROM $batch WHERE true ON CONFLICT (owner, zone, name) DO UPDATE"
            " SET type = excluded.type, revision = excluded.revision, tombstone = excluded.tombstone,"
            " payload = excluded.payload"),
        {sqlValue(m_zone), revision}, batchOf(records));
    if (!rows) return std::unexpected(rows.error());
    if (*rows != static_cast<qint64>(records.size()))
        return wrongCount(QStringLiteral("not every record was written"));

    auto candidates = dropUses(namesOf(records));
    if (!candidates) return std::unexpected(candidates.error());
    CLOUD_TRY(addUses(records));
    std::ranges::transform(assets, std::back_inserter(*candidates), &CloudAsset::hash);
    return dropUnused(*candidates);
}

CloudResult<void> SqlRecords::collect(const std::vector<QString>& names) {
    std::vector<QString> collected;
    CLOUD_TRY(m_connection.queryBatch(
        QStringLiteral("DELETE FROM quillet_records WHERE owner = $owner AND zone = ? AND tombstone"
                       " AND name IN (SELECT name FROM $batch) RETURNING name"),
        {sqlValue(m_zone)}, batchOf(QStringLiteral("name"), names),
        [&collected](const QSqlQuery& row) { collected.push_back(row.value(0).toString()); }));
    const auto candidates = dropUses(collected);
    if (!candidates) return std::unexpected(candidates.error());
    return dropUnused(*candidates);
}

CloudResult<std::vector<QByteArray>> SqlRecords::dropUses(const std::vector<QString>& names) {
    std::vector<QByteArray> hashes;
    CLOUD_TRY(m_connection.queryBatch(
        QStringLiteral("DELETE FROM quillet_asset_uses WHERE owner = $owner AND zone = ?"
                       " AND name IN (SELECT name FROM $batch) RETURNING hash"),
        {sqlValue(m_zone)}, batchOf(QStringLiteral("name"), names),
        [&hashes](const QSqlQuery& row) { hashes.push_back(row.value(0).toByteArray()); }));
    return hashes;
}

CloudResult<void> SqlRecords::addUses(const std::vector<ZoneRecord>& records) {
    const SqlBatch uses = usesBatch(records);
    const auto rows = m_connection.runBatch(
        QStringLiteral("INSERT INTO quillet_asset_uses (owner, zone, name, hash)"
                       " SELECT $owner, CAST(? AS text), batch.name, batch.hash FROM $batch"
                       " JOIN quillet_assets ON quillet_assets.hash = batch.hash"
                       " WHERE quillet_assets.owner = $owner"),
        {sqlValue(m_zone)}, uses);
    if (!rows) return std::unexpected(rows.error());
    if (*rows == static_cast<qint64>(uses.rows.size())) return {};
    return std::unexpected(CKError{CKError::Code::InvalidArguments,
                                   QStringLiteral("a record refers to an asset that is not there")});
}

CloudResult<void> SqlRecords::dropUnused(const std::vector<QByteArray>& hashes) {
    CLOUD_TRY(m_connection.runBatch(
        QStringLiteral("DELETE FROM quillet_assets WHERE owner = $owner AND NOT EXISTS"
                       " (SELECT 1 FROM quillet_asset_uses WHERE quillet_asset_uses.owner = $owner"
                       " AND quillet_asset_uses.hash = quillet_assets.hash)"
                       " AND hash IN (SELECT hash FROM $batch)"),
        {}, batchOf(QStringLiteral("hash"), hashes)));
    return {};
}

} // namespace platform
