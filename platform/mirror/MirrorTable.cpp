#include "platform/mirror/MirrorTable.h"

#include "platform/mirror/RecordCodec.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborMap>

namespace platform {

namespace {

const QString clockKey = QStringLiteral("clock");
const QString deviceKey = QStringLiteral("device");
const QString changeKey = QStringLiteral("change");
const QString progressKey = QStringLiteral("progress");
const QString unsettledKey = QStringLiteral("unsettled");
const QString modelKey = QStringLiteral("model");

constexpr qsizetype identityBytes = 16;

// A state as a record has it, but for the values; and those that are known, by property.
QByteArray toBytes(ObjectState state) {
    QCborMap values;
    for (auto& [property, entry] : state.registers) {
        if (entry.value) values.insert(property, *entry.value);
        entry.value = QCborValue(nullptr);
    }
    return QCborArray{encodeState(state).payload, values}.toCborValue().toCbor();
}

std::optional<ObjectState> fromBytes(const QByteArray& bytes) {
    const QCborArray parts = QCborValue::fromCbor(bytes).toArray();
    auto state = decodeState(parts.at(0).toByteArray());
    if (!state) return state;
    const QCborMap values = parts.at(1).toMap();
    for (auto& [property, entry] : state->registers) {
        const auto value = values.constFind(property);
        entry.value = value == values.constEnd() ? std::nullopt : std::optional(value.value());
    }
    return state;
}

QVariant basesToColumn(const std::map<QString, Register>& bases) {
    if (bases.empty()) return {};
    ObjectState state;
    state.registers = bases;
    return toBytes(std::move(state));
}

std::optional<ObjectState> basesFromColumn(const QVariant& column) {
    return column.isNull() ? ObjectState() : fromBytes(column.toByteArray());
}

std::optional<MirroredObject> objectFrom(const QSqlQuery& row) {
    auto state = fromBytes(row.value(0).toByteArray());
    auto bases = basesFromColumn(row.value(5));
    if (!state || !bases) return std::nullopt;
    MirroredObject object;
    object.bases = std::move(bases->registers);
    object.state = std::move(*state);
    object.change = row.value(1).toLongLong();
    object.revision = row.value(2).toLongLong();
    object.reading = row.value(3).toLongLong();
    object.sent = static_cast<std::uint64_t>(row.value(4).toLongLong());
    object.parked = row.value(6).toByteArray();
    return object;
}

QCborArray toArray(const std::vector<QUuid>& ids) {
    QCborArray array;
    for (const auto& id : ids)
        array += id.toRfc4122();
    return array;
}

// The order of the fields is that of MirrorProgress, without device and clock.
QByteArray progressToBytes(const MirrorProgress& progress) {
    return QCborArray{progress.epoch.toRfc4122(),
                      progress.position.revision,
                      progress.position.name,
                      progress.tag.toRfc4122(),
                      progress.lastTag.toRfc4122(),
                      toArray(progress.unconfirmedTags),
                      progress.reading,
                      progress.isReadingFully,
                      progress.isReconciling,
                      progress.horizon}
        .toCborValue()
        .toCbor();
}

MirrorProgress progressFromBytes(const QByteArray& bytes) {
    const QCborArray fields = QCborValue::fromCbor(bytes).toArray();
    const auto uuidAt = [&fields](qsizetype i) { return QUuid::fromRfc4122(fields.at(i).toByteArray()); };
    MirrorProgress progress;
    progress.epoch = uuidAt(0);
    progress.position = {fields.at(1).toInteger(), fields.at(2).toString()};
    progress.tag = uuidAt(3);
    progress.lastTag = uuidAt(4);
    for (const auto& tag : fields.at(5).toArray())
        progress.unconfirmedTags.push_back(QUuid::fromRfc4122(tag.toByteArray()));
    progress.reading = fields.at(6).toInteger();
    progress.isReadingFully = fields.at(7).toBool();
    progress.isReconciling = fields.at(8).toBool();
    progress.horizon = fields.at(9).toInteger();
    return progress;
}

} // namespace

StoreResult<std::optional<MirroredObject>> MirrorTable::read(const QUuid& id) {
    std::optional<MirroredObject> object;
    STORE_TRY(m_connection->query(
        QStringLiteral(
            "SELECT state, change, revision, reading, sent, bases, parked FROM \"_Mirror\" WHERE id = ?"),
        {id.toRfc4122()}, [&](const QSqlQuery& row) { object = objectFrom(row); }));
    return object;
}

StoreResult<void> MirrorTable::write(const QUuid& id, const MirroredObject& object) {
    return m_connection->run(
        QStringLiteral("INSERT INTO \"_Mirror\" VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?) "
                       "ON CONFLICT (id) DO UPDATE SET state = excluded.state, dead = excluded.dead, "
                       "change = excluded.change, revision = excluded.revision, "
                       "reading = excluded.reading, sent = excluded.sent, bases = excluded.bases, "
                       "parked = excluded.parked"),
        {id.toRfc4122(), toBytes(object.state), object.state.isAlive() ? 0 : 1, object.change,
         object.revision, object.reading, static_cast<qint64>(object.sent), basesToColumn(object.bases),
         object.parked.isEmpty() ? QVariant() : QVariant(object.parked)});
}

StoreResult<void> MirrorTable::remove(const QUuid& id) {
    return m_connection->run(QStringLiteral("DELETE FROM \"_Mirror\" WHERE id = ?"), {id.toRfc4122()});
}

StoreResult<bool> MirrorTable::isDead(const QUuid& id) {
    auto dead =
        m_connection->scalar(QStringLiteral("SELECT dead FROM \"_Mirror\" WHERE id = ?"), {id.toRfc4122()});
    if (!dead) return std::unexpected(dead.error());
    return dead->toInt() != 0;
}

StoreResult<std::vector<QUuid>> MirrorTable::select(const QString& clauses, const QVariantList& values) {
    return identities(*m_connection, QStringLiteral("SELECT id FROM \"_Mirror\" ") + clauses, values);
}

StoreResult<std::vector<QUuid>> MirrorTable::linkSources(const QUuid& target) {
    return identities(*m_connection, QStringLiteral("SELECT source FROM \"_MirrorLinks\" WHERE target = ?"),
                      {target.toRfc4122()});
}

StoreResult<std::vector<QUuid>> MirrorTable::linkTargets(const QUuid& source) {
    return identities(*m_connection, QStringLiteral("SELECT target FROM \"_MirrorLinks\" WHERE source = ?"),
                      {source.toRfc4122()});
}

StoreResult<void> MirrorTable::addLink(const QUuid& source, const QUuid& target) {
    return m_connection->run(QStringLiteral("INSERT OR IGNORE INTO \"_MirrorLinks\" VALUES (?, ?)"),
                             {source.toRfc4122(), target.toRfc4122()});
}

StoreResult<void> MirrorTable::removeLink(const QUuid& source, const QUuid& target) {
    return m_connection->run(QStringLiteral("DELETE FROM \"_MirrorLinks\" WHERE source = ? AND target = ?"),
                             {source.toRfc4122(), target.toRfc4122()});
}

StoreResult<void> MirrorTable::removeLinksOf(const QUuid& source) {
    return m_connection->run(QStringLiteral("DELETE FROM \"_MirrorLinks\" WHERE source = ?"),
                             {source.toRfc4122()});
}

StoreResult<void> MirrorTable::addLinks(const QString& sources, const QUuid& target) {
    return m_connection->run(
        QStringLiteral("INSERT OR IGNORE INTO \"_MirrorLinks\" SELECT source, ? FROM (%1)").arg(sources),
        {target.toRfc4122(), target.toRfc4122()});
}

StoreResult<MirrorProgress> MirrorTable::progress() {
    auto fields = value(progressKey);
    if (!fields) return std::unexpected(fields.error());
    auto latest = clock();
    if (!latest) return std::unexpected(latest.error());
    auto progress = progressFromBytes(fields->toByteArray());
    progress.device = latest->device;
    progress.clock = latest->time;
    return progress;
}

StoreResult<void> MirrorTable::setProgress(const MirrorProgress& progress) {
    STORE_TRY(setClock(progress.clock));
    STORE_TRY(setDevice(progress.device));
    return setValue(progressKey, progressToBytes(progress));
}

StoreResult<Stamp> MirrorTable::clock() {
    auto time = value(clockKey);
    if (!time) return std::unexpected(time.error());
    auto device = value(deviceKey);
    if (!device) return std::unexpected(device.error());
    return Stamp{static_cast<std::uint64_t>(time->toLongLong()), QUuid::fromRfc4122(device->toByteArray())};
}

StoreResult<void> MirrorTable::setClock(std::uint64_t time) {
    return setValue(clockKey, static_cast<qint64>(time));
}

StoreResult<void> MirrorTable::setDevice(const QUuid& device) {
    return setValue(deviceKey, device.toRfc4122());
}

StoreResult<qint64> MirrorTable::nextChanges(qint64 count) {
    auto last = value(changeKey);
    if (!last) return std::unexpected(last.error());
    const qint64 before = last->toLongLong();
    STORE_TRY(setValue(changeKey, before + count));
    return before + 1;
}

StoreResult<std::vector<QUuid>> MirrorTable::unsettled() {
    auto bytes = value(unsettledKey);
    if (!bytes) return std::unexpected(bytes.error());
    const QByteArray all = bytes->toByteArray();
    std::vector<QUuid> ids;
    for (qsizetype i = 0; i + identityBytes <= all.size(); i += identityBytes)
        ids.push_back(QUuid::fromRfc4122(all.mid(i, identityBytes)));
    return ids;
}

StoreResult<void> MirrorTable::addUnsettled(const QUuid& id) {
    auto bytes = value(unsettledKey);
    if (!bytes) return std::unexpected(bytes.error());
    return setValue(unsettledKey, bytes->toByteArray() + id.toRfc4122());
}

StoreResult<void> MirrorTable::clearUnsettled() {
    return m_connection->run(QStringLiteral("DELETE FROM \"_MirrorState\" WHERE key = ?"), {unsettledKey});
}

StoreResult<QByteArray> MirrorTable::modelHash() {
    auto hash = value(modelKey);
    if (!hash) return std::unexpected(hash.error());
    return hash->toByteArray();
}

StoreResult<void> MirrorTable::setModelHash(const QByteArray& hash) {
    return setValue(modelKey, hash);
}

StoreResult<QVariant> MirrorTable::value(const QString& key) {
    return m_connection->scalar(QStringLiteral("SELECT value FROM \"_MirrorState\" WHERE key = ?"), {key});
}

StoreResult<void> MirrorTable::setValue(const QString& key, const QVariant& value) {
    return m_connection->run(QStringLiteral("INSERT OR REPLACE INTO \"_MirrorState\" VALUES (?, ?)"),
                             {key, value});
}

StoreResult<std::vector<QUuid>> identities(SqliteConnection& connection, const QString& sql,
                                           const QVariantList& values) {
    std::vector<QUuid> ids;
    STORE_TRY(connection.query(sql, values, [&ids](const QSqlQuery& row) {
        ids.push_back(QUuid::fromRfc4122(row.value(0).toByteArray()));
    }));
    return ids;
}

} // namespace platform
