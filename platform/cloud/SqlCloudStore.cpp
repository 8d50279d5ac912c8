#include "platform/cloud/SqlCloudStore.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/SqlPush.h"
#include "platform/cloud/SqlRecords.h"
#include "platform/cloud/SqlValue.h"

#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <thread>

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr int attempts = 12;

// Waits a random time, which grows with the attempts, before the next one. False where there is none.
bool pauseBefore(int attempt, CallLimit limit) {
    const std::chrono::milliseconds longest = std::min(2ms * (1 << attempt), 500ms);
    const std::chrono::milliseconds pause(
        QRandomGenerator::global()->bounded(static_cast<int>(longest.count())) + 1);
    if (attempt >= attempts || std::chrono::steady_clock::now() + pause >= limit) return false;
    std::this_thread::sleep_for(pause);
    return true;
}

bool breaksConnection(const CKError& error) {
    return error.code == CKError::Code::NetworkFailure || error.code == CKError::Code::NetworkUnavailable;
}

std::unexpected<CKError> zoneNotFound() {
    return std::unexpected(CKError{CKError::Code::ZoneNotFound, QStringLiteral("no such zone")});
}

CloudResult<void> checkArguments(bool makeSense) {
    if (makeSense) return {};
    return std::unexpected(
        CKError{CKError::Code::InvalidArguments, QStringLiteral("a call that makes no sense")});
}

CloudResult<bool> findZone(SqlConnection& connection, const QString& zone) {
    bool isThere = false;
    CLOUD_TRY(
        connection.query(QStringLiteral("SELECT 1 FROM quillet_zones WHERE owner = $owner AND zone = ?"),
                         {sqlValue(zone)}, [&isThere](const QSqlQuery&) { isThere = true; }));
    return isThere;
}

CloudResult<void> requireZone(SqlConnection& connection, const QString& zone) {
    const auto isThere = findZone(connection, zone);
    if (!isThere) return std::unexpected(isThere.error());
    if (!*isThere) return zoneNotFound();
    return {};
}

struct HeadRow {
    ZoneHead head;
    QUuid tagAtPosition; // null where the server has no such revision
};

CloudResult<HeadRow> readHead(SqlConnection& connection, const QString& zone, qint64 revision) {
    HeadRow result;
    CLOUD_TRY(connection.query(
        QStringLiteral("SELECT h.epoch, h.revision, h.tag, COALESCE(z.horizon, 0), r.tag FROM quillet_heads h"
                       " LEFT JOIN quillet_zones z ON z.owner = h.owner AND z.zone = ?"
                       " LEFT JOIN quillet_revisions r ON r.owner = h.owner AND r.revision = ?"
                       " WHERE h.owner = $owner"),
        {sqlValue(zone), revision}, [&result](const QSqlQuery& row) {
            result = {{uuidOf(row.value(0)), row.value(1).toLongLong(), uuidOf(row.value(2)),
                       row.value(3).toLongLong()},
                      uuidOf(row.value(4))};
        }));
    return result;
}

// Where a reader of the whole page stands.
CloudResult<void> setPosition(SqlConnection& connection, ZoneChanges& page) {
    if (!page.hasMore) {
        page.position = {page.head.revision, {}};
        page.tag = page.head.tag;
        return {};
    }
    page.position = {page.records.back().revision, page.records.back().name};
    return connection.query(
        QStringLiteral("SELECT tag FROM quillet_revisions WHERE owner = $owner AND revision = ?"),
        {page.position.revision}, [&page](const QSqlQuery& row) { page.tag = uuidOf(row.value(0)); });
}

bool isKnown(const HeadRow& row, const QUuid& epoch, qint64 revision, const QUuid& tag) {
    if (epoch != row.head.epoch) return false;
    return revision == 0 || (!tag.isNull() && tag == row.tagAtPosition);
}

CKError interruption() {
    return {CKError::Code::NetworkFailure, QStringLiteral("the call was broken off")};
}

} // namespace

SqlCloudStore::SqlCloudStore(std::unique_ptr<SqlDialect> dialect, Deadline deadline)
    : m_dialect(std::move(dialect))
    , m_deadline(deadline) {}

CloudResult<std::unique_ptr<CloudStore>> SqlCloudStore::open(std::unique_ptr<SqlDialect> dialect,
                                                             Deadline deadline) {
    std::unique_ptr<SqlCloudStore> store(new SqlCloudStore(std::move(dialect), deadline));
    CLOUD_TRY(store->call<void>([](SqlConnection&) { return CloudResult<void>(); }));
    return store;
}

CloudResult<void> SqlCloudStore::connect(CallLimit limit) {
    if (m_connection && m_dialect->isCurrent()) return {};
    m_connection.reset();
    auto connection = m_dialect->connect(limit);
    if (!connection) return std::unexpected(connection.error());
    if (m_observer) CLOUD_TRY(m_dialect->subscribe(**connection, m_observer));
    m_connection = std::move(*connection);
    return {};
}

template <typename T>
CloudResult<T> SqlCloudStore::attempt(const std::function<CloudResult<T>(SqlConnection&)>& body,
                                      CallLimit limit) {
    CLOUD_TRY(connect(limit));
    auto result = body(*m_connection);
    if (m_connection->isSpoilt() || (!result && breaksConnection(result.error()))) m_connection.reset();
    return result;
}

template <typename T>
CloudResult<T> SqlCloudStore::call(const std::function<CloudResult<T>(SqlConnection&)>& body) {
    const CallLimit limit = std::chrono::steady_clock::now() + m_deadline;
    m_dialect->beginCall(limit);
    // Behind the line above, which an interruption ahead of it would not survive.
    auto result = m_isInterrupted ? CloudResult<T>(std::unexpected(interruption())) : attempt(body, limit);
    for (int tried = 1;
         !result && result.error().code == CKError::Code::RequestRateLimited && pauseBefore(tried, limit);
         ++tried)
        result = attempt(body, limit);
    m_dialect->endCall();
    return result;
}

CloudResult<qint64> SqlCloudStore::revision() {
    return call<qint64>([](SqlConnection& connection) -> CloudResult<qint64> {
        qint64 revision = 0;
        CLOUD_TRY(
            connection.query(QStringLiteral("SELECT revision FROM quillet_heads WHERE owner = $owner"), {},
                             [&revision](const QSqlQuery& row) { revision = row.value(0).toLongLong(); }));
        return revision;
    });
}

CloudResult<ZoneChanges> SqlCloudStore::changes(const QString& zone, const QUuid& epoch,
                                                const ZonePosition& position, const QUuid& tag, int limit) {
    constexpr qint64 lastRevision = std::numeric_limits<qint64>::max();
    CLOUD_TRY(checkArguments(isStorable(zone) && isStorable(position.name) && position.revision >= 0 &&
                             position.revision < lastRevision && limit > 0 && limit < INT_MAX));
    return call<ZoneChanges>([&](SqlConnection& connection) -> CloudResult<ZoneChanges> {
        ZoneChanges page;
        const auto read = connection.read([&]() -> CloudResult<void> {
            const auto row = readHead(connection, zone, position.revision);
            if (!row) return std::unexpected(row.error());
            page.head = row->head;
            page.isKnownHistory = isKnown(*row, epoch, position.revision, tag);
            auto records = SqlRecords(connection, zone).after(position, limit + 1);
            if (!records) return std::unexpected(records.error());
            page.hasMore = records->size() > static_cast<std::size_t>(limit);
            if (page.hasMore) records->pop_back();
            page.records = std::move(*records);
            return setPosition(connection, page);
        });
        return read ? CloudResult<ZoneChanges>(std::move(page)) : std::unexpected(read.error());
    });
}

CloudResult<PushResult> SqlCloudStore::push(const ZonePush& push) {
    CLOUD_TRY(checkPush(push));
    return call<PushResult>([&](SqlConnection& connection) -> CloudResult<PushResult> {
        PushResult result;
        const auto written = connection.write([&]() -> CloudResult<SqlConnection::Ending> {
            const auto applied = applyPush(connection, push);
            if (!applied) return std::unexpected(applied.error());
            result = *applied;
            if (result.outcome != PushOutcome::Committed) return SqlConnection::Ending::Rollback;
            CLOUD_TRY(m_dialect->announce(connection));
            return SqlConnection::Ending::Commit;
        });
        return written ? CloudResult<PushResult>(result) : std::unexpected(written.error());
    });
}

CloudResult<QByteArray> SqlCloudStore::asset(const QByteArray& hash) {
    return call<QByteArray>([&](SqlConnection& connection) -> CloudResult<QByteArray> {
        std::optional<QByteArray> content;
        CLOUD_TRY(connection.query(
            QStringLiteral("SELECT content FROM quillet_assets WHERE owner = $owner AND hash = ?"),
            {sqlValue(hash)}, [&content](const QSqlQuery& row) { content = row.value(0).toByteArray(); }));
        if (content) return *content;
        return std::unexpected(CKError{CKError::Code::UnknownItem, QStringLiteral("no such asset")});
    });
}

CloudResult<void> SqlCloudStore::reportDevice(const QString& zone, const QUuid& device, qint64 revision) {
    CLOUD_TRY(checkArguments(isStorable(zone) && !device.isNull()));
    return call<void>([&](SqlConnection& connection) -> CloudResult<void> {
        CLOUD_TRY(connection.run(
            QStringLiteral("INSERT INTO quillet_devices (owner, zone, device, revision, seen_at)"
                           " VALUES ($owner, ?, ?, ?, $now) ON CONFLICT (owner, zone, device)"
                           " DO UPDATE SET revision = excluded.revision, seen_at = excluded.seen_at"),
            {sqlValue(zone), sqlValue(device), revision}));
        return {};
    });
}

CloudResult<std::vector<DeviceEntry>> SqlCloudStore::devices(const QString& zone) {
    CLOUD_TRY(checkArguments(isStorable(zone)));
    return call<std::vector<DeviceEntry>>(
        [&](SqlConnection& connection) -> CloudResult<std::vector<DeviceEntry>> {
            std::vector<DeviceEntry> devices;
            CLOUD_TRY(connection.query(
                QStringLiteral("SELECT device, revision, $now - seen_at, tag FROM quillet_devices"
                               " WHERE owner = $owner AND zone = ? ORDER BY device"),
                {sqlValue(zone)}, [&devices](const QSqlQuery& row) {
                    devices.push_back({uuidOf(row.value(0)), row.value(1).toLongLong(),
                                       std::max<qint64>(0, row.value(2).toLongLong()), uuidOf(row.value(3))});
                }));
            return devices;
        });
}

CloudResult<void> SqlCloudStore::forgetDevice(const QString& zone, const QUuid& device) {
    CLOUD_TRY(checkArguments(isStorable(zone)));
    return call<void>([&](SqlConnection& connection) -> CloudResult<void> {
        CLOUD_TRY(connection.run(
            QStringLiteral("DELETE FROM quillet_devices WHERE owner = $owner AND zone = ? AND device = ?"),
            {sqlValue(zone), sqlValue(device)}));
        return {};
    });
}

CloudResult<bool> SqlCloudStore::hasZone(const QString& zone) {
    CLOUD_TRY(checkArguments(isStorable(zone)));
    return call<bool>([&](SqlConnection& connection) { return findZone(connection, zone); });
}

CloudResult<void> SqlCloudStore::saveZone(const QString& zone) {
    CLOUD_TRY(checkArguments(isStorable(zone) && !zone.isEmpty()));
    return call<void>([&](SqlConnection& connection) {
        return connection.write([&]() -> CloudResult<SqlConnection::Ending> {
            CLOUD_TRY(advanceHead(connection));
            CLOUD_TRY(connection.run(
                QStringLiteral("INSERT INTO quillet_zones (owner, zone, horizon) VALUES ($owner, ?, 0)"
                               " ON CONFLICT (owner, zone) DO NOTHING"),
                {sqlValue(zone)}));
            CLOUD_TRY(m_dialect->announce(connection));
            return SqlConnection::Ending::Commit;
        });
    });
}

CloudResult<std::vector<ZoneRecord>> SqlCloudStore::records(const QString& zone, const QString& type) {
    CLOUD_TRY(checkArguments(isStorable(zone) && isStorable(type)));
    return call<std::vector<ZoneRecord>>(
        [&](SqlConnection& connection) -> CloudResult<std::vector<ZoneRecord>> {
            CloudResult<std::vector<ZoneRecord>> records;
            const auto read = connection.read([&]() -> CloudResult<void> {
                CLOUD_TRY(requireZone(connection, zone));
                records = SqlRecords(connection, zone).ofType(type);
                return records ? CloudResult<void>() : std::unexpected(records.error());
            });
            return read ? std::move(records) : std::unexpected(read.error());
        });
}

CloudResult<void> SqlCloudStore::saveRecord(const QString& zone, const ZoneRecord& record) {
    CLOUD_TRY(checkArguments(isStorable(zone) && isStorable(record.name) && !record.name.isEmpty() &&
                             isStorable(record.type)));
    return call<void>([&](SqlConnection& connection) {
        return connection.write([&]() -> CloudResult<SqlConnection::Ending> {
            CLOUD_TRY(requireZone(connection, zone));
            const auto revision = advanceHead(connection);
            if (!revision) return std::unexpected(revision.error());
            CLOUD_TRY(SqlRecords(connection, zone).write({record}, {}, *revision));
            CLOUD_TRY(m_dialect->announce(connection));
            return SqlConnection::Ending::Commit;
        });
    });
}

CloudResult<CloudStore::Notifications> SqlCloudStore::subscribe(std::function<void()> observer) {
    m_observer = std::move(observer);
    return call<Notifications>([&](SqlConnection& connection) { // also where it has only just connected
        return m_dialect->subscribe(connection, m_observer);
    });
}

void SqlCloudStore::interrupt() {
    m_isInterrupted = true;
    m_dialect->interrupt();
}

} // namespace platform
