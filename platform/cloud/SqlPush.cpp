#include "platform/cloud/SqlPush.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/SqlRecords.h"
#include "platform/cloud/SqlValue.h"

#include <optional>
#include <set>

namespace platform {

namespace {

// The first revision of a history that begins here; nothing where somebody has begun one.
CloudResult<std::optional<qint64>> beginHistory(SqlConnection& connection, const QUuid& epoch,
                                                const QUuid& tag) {
    const auto rows =
        connection.run(QStringLiteral("INSERT INTO quillet_heads (owner, epoch, revision, tag)"
                                      " VALUES ($owner, ?, 1, ?) ON CONFLICT (owner) DO NOTHING"),
                       {sqlValue(epoch), sqlValue(tag)});
    if (!rows) return std::unexpected(rows.error());
    return *rows == 1 ? std::optional<qint64>(1) : std::nullopt;
}

CloudResult<std::optional<qint64>> increment(SqlConnection& connection, const QString& condition,
                                             const QVariantList& values) {
    std::optional<qint64> revision;
    CLOUD_TRY(connection.query(
        QStringLiteral("UPDATE quillet_heads SET revision = revision + 1, tag = ? WHERE owner = $owner%1"
                       " RETURNING revision")
            .arg(condition),
        values, [&revision](const QSqlQuery& row) { revision = row.value(0).toLongLong(); }));
    return revision;
}

CloudResult<void> sign(SqlConnection& connection, qint64 revision, const QUuid& tag) {
    const auto rows = connection.run(QStringLiteral("INSERT INTO quillet_revisions (owner, revision, tag)"
                                                    " VALUES ($owner, ?, ?)"),
                                     {revision, sqlValue(tag)});
    if (!rows) return std::unexpected(rows.error());
    if (*rows == 1) return {};
    return std::unexpected(
        CKError{CKError::Code::InternalError, QStringLiteral("the revision was not written")});
}

// The revision that the push makes; nothing where it is not on top of the head.
CloudResult<std::optional<qint64>> advanceFrom(SqlConnection& connection, const ZonePush& push) {
    if (!push.epoch.isNull())
        return increment(
            connection, QStringLiteral(" AND epoch = ? AND revision = ? AND tag = ?"),
            {sqlValue(push.tag), sqlValue(push.epoch), push.expectedRevision, sqlValue(push.expectedTag)});
    return beginHistory(connection, push.newEpoch, push.tag);
}

// Makes the zone where it is missing; its horizon only rises.
CloudResult<void> raiseHorizon(SqlConnection& connection, const ZonePush& push) {
    CLOUD_TRY(
        connection.run(QStringLiteral("INSERT INTO quillet_zones (owner, zone, horizon) VALUES ($owner, ?, ?)"
                                      " ON CONFLICT (owner, zone) DO UPDATE SET horizon = excluded.horizon"
                                      " WHERE excluded.horizon > quillet_zones.horizon"),
                       {sqlValue(push.zone), push.horizon}));
    return {};
}

// Whether the push is this device's. One that has only told how far it has read has no tag yet.
CloudResult<bool> signIn(SqlConnection& connection, const ZonePush& push) {
    const auto known = connection.run(
        QStringLiteral("UPDATE quillet_devices SET tag = ?, seen_at = $now WHERE owner = $owner AND zone = ?"
                       " AND device = ? AND (tag IS NULL OR tag = ? OR tag = ?)"),
        {sqlValue(push.tag), sqlValue(push.zone), sqlValue(push.device), sqlValue(push.lastTag),
         sqlValue(push.unconfirmedTag)});
    if (!known) return std::unexpected(known.error());
    if (*known == 1) return true;
    const auto fresh = connection.run(
        QStringLiteral("INSERT INTO quillet_devices (owner, zone, device, revision, tag, seen_at)"
                       " VALUES ($owner, ?, ?, 0, ?, $now) ON CONFLICT (owner, zone, device) DO NOTHING"),
        {sqlValue(push.zone), sqlValue(push.device), sqlValue(push.tag)});
    if (!fresh) return std::unexpected(fresh.error());
    return *fresh == 1;
}

bool areNames(const std::vector<QString>& names) {
    std::set<QString> seen;
    return std::ranges::all_of(names, [&seen](const QString& name) {
        return !name.isEmpty() && isStorable(name) && seen.insert(name).second;
    });
}

} // namespace

CloudResult<void> checkPush(const ZonePush& push) {
    std::vector<QString> names;
    bool areTypes = true;
    for (const ZoneRecord& record : push.records) {
        names.push_back(record.name);
        areTypes = areTypes && isStorable(record.type);
    }
    const bool hasHistory =
        push.epoch.isNull() ? !push.newEpoch.isNull() && push.expectedRevision == 0 : true;
    if (hasHistory && !push.tag.isNull() && !push.device.isNull() && push.horizon >= 0 && areTypes &&
        areNames({push.zone}) && areNames(names) && areNames(push.collected))
        return {};
    return std::unexpected(
        CKError{CKError::Code::InvalidArguments, QStringLiteral("a push that makes no sense")});
}

CloudResult<PushResult> applyPush(SqlConnection& connection, const ZonePush& push) {
    const auto revision = advanceFrom(connection, push);
    if (!revision) return std::unexpected(revision.error());
    if (!*revision) return PushResult{PushOutcome::Behind, 0};
    CLOUD_TRY(sign(connection, **revision, push.tag));
    CLOUD_TRY(raiseHorizon(connection, push));
    const auto isOwnDevice = signIn(connection, push);
    if (!isOwnDevice) return std::unexpected(isOwnDevice.error());
    if (!*isOwnDevice) return PushResult{PushOutcome::DeviceTaken, 0};
    SqlRecords records(connection, push.zone);
    CLOUD_TRY(records.write(push.records, push.assets, **revision));
    CLOUD_TRY(records.collect(push.collected));
    return PushResult{PushOutcome::Committed, **revision};
}

CloudResult<qint64> advanceHead(SqlConnection& connection) {
    const QUuid tag = QUuid::createUuid();
    auto revision = increment(connection, QString(), {sqlValue(tag)});
    if (revision && !*revision) revision = beginHistory(connection, QUuid::createUuid(), tag);
    if (!revision) return std::unexpected(revision.error());
    if (!*revision)
        return std::unexpected(
            CKError{CKError::Code::RequestRateLimited, QStringLiteral("another device was quicker")});
    CLOUD_TRY(sign(connection, **revision, tag));
    return **revision;
}

} // namespace platform
