#include "platform/mirror/MirrorPush.h"

#include "platform/mirror/DeliberateFaults.h"
#include "platform/mirror/RecordCodec.h"
#include "platform/mirror/StateMerge.h"

#include <algorithm>

namespace platform {

namespace {

// Tags whose outcome is unknown that a device remembers.
constexpr std::size_t mostUnconfirmed = 16;

QString nameOf(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces);
}

} // namespace

MirrorResult<std::optional<PushOutcome>> MirrorPush::run() {
    Batch batch;
    MIRROR_TRY(withProgress(m_environment, [&](MirrorProgress& progress) -> StoreResult<void> {
        batch = {};
        STORE_TRY(addOutbox(batch));
        if (batch.objects.empty()) return {};
        return sign(batch, progress);
    }));
    if (batch.objects.empty()) return std::nullopt;
    const auto outcome = send(batch);
    if (!outcome) return std::unexpected(outcome.error());
    return *outcome;
}

MirrorResult<PushOutcome> MirrorPush::collect(const std::vector<QUuid>& kept,
                                              const std::vector<QUuid>& collected, qint64 horizon) {
    Batch batch;
    MIRROR_TRY(withProgress(m_environment, [&](MirrorProgress& progress) -> StoreResult<void> {
        batch = {};
        for (const QUuid& id : kept)
            if (const auto added = add(batch, id); !added) return std::unexpected(added.error());
        batch.collected = collected;
        for (const QUuid& id : collected)
            batch.push.collected.push_back(nameOf(id));
        batch.push.horizon = horizon;
        return sign(batch, progress);
    }));
    return send(batch);
}

StoreResult<void> MirrorPush::addOutbox(Batch& batch) {
    const auto ids = m_environment.storage.outbox(m_environment.policy.pushLimit);
    if (!ids) return std::unexpected(ids.error());
    qsizetype bytes = 0;
    for (const QUuid& id : *ids) {
        if (bytes > m_environment.policy.pushBytes) break;
        const auto added = add(batch, id);
        if (!added) return std::unexpected(added.error());
        bytes += *added;
    }
    return {};
}

// The bytes that it adds.
StoreResult<qsizetype> MirrorPush::add(Batch& batch, const QUuid& id) {
    auto object = m_environment.storage.object(id);
    if (!object) return std::unexpected(object.error());
    if (!*object) return 0;
    const ObjectState& state = (*object)->state;
    EncodedState encoded = encodeState(state);
    qsizetype bytes = encoded.payload.size();
    ZoneRecord record{nameOf(id), state.entity, 0, !state.isAlive(), encoded.payload, {}};
    for (CloudAsset& asset : encoded.assets) {
        bytes += asset.content.size();
        record.assets.push_back(asset.hash);
        batch.push.assets.push_back(std::move(asset));
    }
    batch.push.records.push_back(std::move(record));
    batch.objects.push_back({id, std::move(**object)});
    return bytes;
}

StoreResult<void> MirrorPush::sign(Batch& batch, MirrorProgress& progress) {
    ZonePush& push = batch.push;
    push.zone = m_environment.zone;
    push.epoch = progress.epoch;
    if (push.epoch.isNull()) push.newEpoch = m_environment.random();
    push.expectedRevision = progress.position.revision;
    push.expectedTag = progress.tag;
    push.tag = m_environment.random();
    push.device = progress.device;
    push.lastTag = progress.lastTag;
    auto& unconfirmed = progress.unconfirmedTags;
    if (!unconfirmed.empty()) push.unconfirmedTag = unconfirmed.back();
    unconfirmed.push_back(push.tag);
    if (unconfirmed.size() > mostUnconfirmed) unconfirmed.erase(unconfirmed.begin());
    if (!faults::outboxIsClearedEarly) return {};
    for (const SentObject& sent : batch.objects)
        STORE_TRY(settleObject(sent, progress.device, progress.position.revision + 1));
    return {};
}

MirrorResult<PushOutcome> MirrorPush::send(const Batch& batch) {
    const auto result = m_environment.cloud.push(batch.push);
    if (!result) return std::unexpected(result.error());
    if (result->outcome == PushOutcome::Committed) MIRROR_TRY(settle(batch, result->revision));
    return result->outcome;
}

StoreResult<void> MirrorPush::settle(const Batch& batch, qint64 revision) {
    return withProgress(m_environment, [&](MirrorProgress& progress) -> StoreResult<void> {
        for (const SentObject& sent : batch.objects)
            STORE_TRY(settleObject(sent, batch.push.device, revision));
        for (const QUuid& id : batch.collected)
            STORE_TRY(removeCollected(id));
        if (progress.epoch.isNull()) progress.epoch = batch.push.newEpoch;
        if (batch.push.horizon != 0) progress.horizon = batch.push.horizon;
        progress.lastTag = batch.push.tag;
        progress.unconfirmedTags.clear();
        progress.position = {revision, {}};
        progress.tag = batch.push.tag;
        return {};
    });
}

StoreResult<void> MirrorPush::settleObject(const SentObject& sent, const QUuid& device, qint64 revision) {
    auto object = m_environment.storage.object(sent.id);
    if (!object) return std::unexpected(object.error());
    if (!*object) return {};
    MirroredObject& now = **object;
    if (now.change == sent.object.change) now.change = 0;
    now.bases = basesOf(now.state, sent.object.state);
    now.revision = revision;
    now.sent = std::max(now.sent, sent.object.state.writes().timeOf(device));
    return m_environment.storage.put(sent.id, now);
}

// Unless it has come back meanwhile.
StoreResult<void> MirrorPush::removeCollected(const QUuid& id) {
    const auto object = m_environment.storage.object(id);
    if (!object) return std::unexpected(object.error());
    if (!*object || (*object)->change != 0) return {};
    return m_environment.storage.remove(id);
}

} // namespace platform
