#include "platform/mirror/tests/SimulatedServer.h"

#include <QtCore/QSet>

#include <algorithm>

namespace simulation {

using namespace platform;

QUuid Server::tagOf(qint64 at) const {
    const auto found = tags.find(at);
    return found == tags.end() ? QUuid() : found->second;
}

ZoneChanges Server::changes(const QUuid& knownEpoch, const ZonePosition& position, const QUuid& tag,
                            int limit) const {
    ZoneChanges page;
    page.head = {epoch, revision, tagOf(revision), horizon};
    page.isKnownHistory =
        epoch == knownEpoch && position.revision <= revision && tagOf(position.revision) == tag;
    for (const auto& [name, row] : rows)
        if (ZonePosition{row.record.revision, name} > position) page.records.push_back(row.record);
    std::ranges::sort(page.records, {},
                      [](const ZoneRecord& record) { return ZonePosition{record.revision, record.name}; });
    page.hasMore = std::ssize(page.records) > limit;
    if (page.hasMore) page.records.resize(limit);
    page.position = page.hasMore ? ZonePosition{page.records.back().revision, page.records.back().name}
                                 : ZonePosition{revision, {}};
    page.tag = tagOf(page.position.revision);
    return page;
}

PushResult Server::push(const ZonePush& push, const std::map<QString, Edits>& edits, qint64 now) {
    const auto known = devices.find(push.device);
    const QUuid lastTag = known == devices.end() ? QUuid() : known->second.lastTag;
    if (!lastTag.isNull() && lastTag != push.lastTag && lastTag != push.unconfirmedTag)
        return {PushOutcome::DeviceTaken, 0};
    if (push.epoch != epoch || push.expectedRevision != revision || push.expectedTag != tagOf(revision))
        return {PushOutcome::Behind, 0};
    if (epoch.isNull()) epoch = push.newEpoch;
    tags[++revision] = push.tag;
    for (const CloudAsset& asset : push.assets)
        assets[asset.hash] = asset.content;
    for (const ZoneRecord& record : push.records) {
        Row& row = rows[record.name];
        row.record = record;
        row.record.revision = revision;
        row.edits |= edits.at(record.name);
    }
    for (const QString& name : push.collected)
        rows.erase(name);
    if (push.horizon != 0) horizon = push.horizon;
    Device& device = devices[push.device];
    device.lastTag = push.tag;
    device.heardAt = now;
    collectAssets();
    return {PushOutcome::Committed, revision};
}

void Server::collectAssets() {
    if (assets.empty()) return;
    QSet<QByteArray> used;
    for (const auto& [name, row] : rows)
        used.unite(QSet<QByteArray>(row.record.assets.begin(), row.record.assets.end()));
    std::erase_if(assets, [&used](const auto& asset) { return !used.contains(asset.first); });
}

} // namespace simulation
