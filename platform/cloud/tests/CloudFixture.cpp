#include "platform/cloud/tests/CloudFixture.h"

#include "platform/foundation/FatalError.h"

namespace platform::testing {

std::unique_ptr<CloudStore> openStore(const CloudAccount& account, Deadline deadline) {
    auto store = openCloudStore(account, deadline);
    if (!store) fatalError(store.error().message.toStdString());
    return std::move(*store);
}

Cloud::Cloud(Kind kind) {
    if (kind == Kind::File) {
        m_account = FileAccount{m_directory.filePath(QStringLiteral("Cloud.sqlite"))};
    } else {
        m_server.emplace();
        m_account = m_server->addUser(QStringLiteral("alice"));
    }
}

ZoneRecord record(const QString& name, const QByteArray& payload) {
    return {name, QStringLiteral("Thing"), 0, false, payload, {}};
}

Device::Device(CloudStore& store, QString zone)
    : m_store(store)
    , m_zone(std::move(zone)) {}

CloudResult<void> Device::pull(int limit) {
    for (bool hasMore = true; hasMore;) {
        const auto page = m_store.changes(m_zone, epoch, position, tag, limit);
        if (!page) return std::unexpected(page.error());
        hasMore = page->hasMore;
        head = page->head;
        isKnownHistory = page->isKnownHistory;
        epoch = head.epoch;
        for (const ZoneRecord& one : page->records)
            m_records[one.name] = one;
        if (hasMore) {
            position = {page->records.back().revision, page->records.back().name};
            tag = {}; // of a revision inside the history, which this reader does not look up
        } else {
            position = {head.revision, {}};
            tag = head.tag;
        }
    }
    return {};
}

ZonePush Device::pushOf(std::vector<ZoneRecord> records) const {
    ZonePush push;
    push.zone = m_zone;
    push.epoch = epoch;
    push.newEpoch = epoch.isNull() ? QUuid::createUuid() : QUuid();
    push.expectedRevision = position.revision;
    push.expectedTag = tag;
    push.tag = QUuid::createUuid();
    push.device = m_device;
    push.lastTag = m_lastTag;
    push.records = std::move(records);
    return push;
}

CloudResult<PushResult> Device::push(const ZonePush& push) {
    const auto result = m_store.push(push);
    if (!result || result->outcome != PushOutcome::Committed) return result;
    position = {result->revision, {}};
    tag = push.tag;
    m_lastTag = push.tag;
    epoch = epoch.isNull() ? push.newEpoch : epoch;
    for (ZoneRecord one : push.records) {
        one.revision = result->revision;
        m_records[one.name] = one;
    }
    return result;
}

} // namespace platform::testing
