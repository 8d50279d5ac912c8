#include "platform/mirror/MirrorPull.h"

#include "platform/mirror/DeliberateFaults.h"
#include "platform/mirror/RecordCodec.h"

namespace platform {

namespace {

// Pages without progress before the caller is left to try again.
constexpr int mostIdlePages = 16;

} // namespace

MirrorResult<bool> MirrorPull::run() {
    m_assets = {};
    ZonePosition last;
    for (int idle = 0; idle < mostIdlePages; ++idle) {
        const auto hasMore = readPage();
        if (!hasMore) return std::unexpected(hasMore.error());
        if (!*hasMore) return true;
        const auto progress = readProgress(m_environment);
        if (!progress) return std::unexpected(progress.error());
        if (progress->position > last) idle = -1;
        last = progress->position;
    }
    return false;
}

MirrorResult<bool> MirrorPull::readPage() {
    const auto asked = readProgress(m_environment);
    if (!asked) return std::unexpected(asked.error());
    const auto page = m_environment.cloud.changes(m_environment.zone, asked->epoch, asked->position,
                                                  asked->tag, m_environment.policy.pageLimit);
    if (!page) return std::unexpected(page.error());
    const Finding finding = judge(*asked, *page);
    if (finding == Finding::Nothing) return true;
    if (finding != Finding::Next) {
        MIRROR_TRY(startReading(page->head, finding));
        return true;
    }
    if (!page->records.empty()) MIRROR_TRY(m_identity.check());
    MIRROR_TRY(take(*asked, *page));
    const auto reached = readProgress(m_environment);
    if (!reached) return std::unexpected(reached.error());
    return page->hasMore || reached->position != page->position;
}

// A reply may be an old one that was held up: what does not lead on from where we stand is nothing.
MirrorPull::Finding MirrorPull::judge(const MirrorProgress& progress, const ZoneChanges& page) {
    const ZonePosition& position = progress.position;
    const bool isSameHistory = page.head.epoch == progress.epoch && page.head.revision >= position.revision &&
                               (position.revision == 0 || page.isKnownHistory);
    if (!isSameHistory) return Finding::OtherHistory;
    const bool readsSinceHorizon = progress.isReadingFully && page.head.horizon == progress.horizon;
    const ZonePosition horizon{page.head.horizon, {}};
    if (position < horizon && !readsSinceHorizon) return Finding::MissedDeletions;
    const bool leadsOn = page.hasMore ? page.position > position : page.position >= position;
    return leadsOn ? Finding::Next : Finding::Nothing;
}

MirrorResult<void> MirrorPull::startReading(const ZoneHead& head, Finding why) {
    MIRROR_TRY(withProgress(m_environment, [&](MirrorProgress& progress) -> StoreResult<void> {
        progress.isReconciling =
            why == Finding::OtherHistory || (progress.isReadingFully && progress.isReconciling);
        progress.isReadingFully = true;
        ++progress.reading;
        progress.epoch = head.epoch;
        progress.horizon = head.horizon;
        progress.position = {};
        progress.tag = {};
        return {};
    }));
    return m_identity.announce();
}

MirrorResult<void> MirrorPull::take(const MirrorProgress& asked, const ZoneChanges& page) {
    if (faults::cursorGoesAhead)
        MIRROR_TRY(
            withProgress(m_environment, [&](MirrorProgress& progress) { return advance(progress, page); }));
    return withIntake([&](RecordIntake& intake, MirrorProgress& progress) -> StoreResult<void> {
        const bool isAsAsked = progress.position == asked.position && progress.reading == asked.reading;
        if (!isAsAsked && !faults::cursorGoesAhead) return {};
        for (const ZoneRecord& record : page.records)
            STORE_TRY(intake.take(record));
        return intake.missing().isEmpty() ? advance(progress, page) : StoreResult<void>();
    });
}

StoreResult<void> MirrorPull::advance(MirrorProgress& progress, const ZoneChanges& page) {
    progress.position = page.position;
    progress.tag = page.tag;
    if (page.hasMore) return {};
    progress.horizon = page.head.horizon;
    if (progress.isReadingFully) STORE_TRY(finishReading(progress));
    return dropTombstones(progress.horizon);
}

StoreResult<void> MirrorPull::finishReading(MirrorProgress& progress) {
    STORE_TRY(dropLostRecords(progress));
    const auto unmet = m_environment.storage.notMetBy(progress.reading);
    if (!unmet) return std::unexpected(unmet.error());
    const auto isMuch = isTooMuch(*unmet);
    if (!isMuch) return std::unexpected(isMuch.error());
    const bool isReconciling = progress.isReconciling || *isMuch;
    for (const QUuid& id : *unmet)
        STORE_TRY(settleUnmet(id, progress, isReconciling));
    progress.isReadingFully = false;
    progress.isReconciling = false;
    return {};
}

// Records whose assets were lost, and which are no longer there: what is known here goes on without them.
StoreResult<void> MirrorPull::dropLostRecords(const MirrorProgress& progress) {
    const auto ids = m_environment.storage.parked();
    if (!ids) return std::unexpected(ids.error());
    for (const QUuid& id : *ids) {
        auto object = m_environment.storage.object(id);
        if (!object) return std::unexpected(object.error());
        if (!*object || (*object)->reading >= progress.reading || !decodeState((*object)->parked)) continue;
        (*object)->parked.clear();
        const bool isKnown = !(*object)->state.entity.isEmpty();
        STORE_TRY(isKnown ? m_environment.storage.put(id, **object) : m_environment.storage.remove(id));
    }
    return {};
}

// More than a third of what is shown.
StoreResult<bool> MirrorPull::isTooMuch(const std::vector<QUuid>& vanished) {
    qint64 shown = 0;
    for (const QUuid& id : vanished) {
        const auto isShown = m_environment.storage.isShown(id);
        if (!isShown) return std::unexpected(isShown.error());
        if (*isShown) ++shown;
    }
    const auto all = m_environment.storage.shownCount();
    if (!all) return std::unexpected(all.error());
    return 3 * shown > *all;
}

StoreResult<void> MirrorPull::settleUnmet(const QUuid& id, const MirrorProgress& progress,
                                          bool isReconciling) {
    auto object = m_environment.storage.object(id);
    if (!object) return std::unexpected(object.error());
    if (!*object) return {};
    // What the server had after its horizon cannot have been collected.
    if (!isReconciling && (*object)->revision <= progress.horizon)
        return removeCollected(id, std::move(**object));
    const auto change = m_environment.storage.nextChange();
    if (!change) return std::unexpected(change.error());
    (*object)->change = *change;
    return m_environment.storage.put(id, **object);
}

StoreResult<void> MirrorPull::removeCollected(const QUuid& id, MirroredObject object) {
    object.state.markDeleted(object.state.deletionTime);
    STORE_TRY(m_environment.storage.put(id, object));
    m_hasChanged = true;
    return m_environment.storage.remove(id);
}

// Who sets the horizon collects every tombstone up to it.
StoreResult<void> MirrorPull::dropTombstones(qint64 horizon) {
    const auto dead = m_environment.storage.deadUpTo(horizon);
    if (!dead) return std::unexpected(dead.error());
    for (const QUuid& id : *dead)
        STORE_TRY(m_environment.storage.remove(id));
    return {};
}

MirrorResult<void> MirrorPull::retryParked() {
    return withIntake([this](RecordIntake& intake, MirrorProgress&) -> StoreResult<void> {
        const auto ids = m_environment.storage.parked();
        if (!ids) return std::unexpected(ids.error());
        for (const QUuid& id : *ids) {
            const auto object = m_environment.storage.object(id);
            if (!object) return std::unexpected(object.error());
            if (!*object) continue;
            ZoneRecord record;
            record.name = id.toString(QUuid::WithoutBraces);
            record.revision = (*object)->revision;
            record.payload = (*object)->parked;
            STORE_TRY(intake.take(record));
        }
        return {};
    });
}

MirrorResult<void> MirrorPull::withIntake(const IntakeBody& body) {
    while (true) {
        QSet<QByteArray> missing;
        bool hasChanged = false;
        const auto done = withProgress(m_environment, [&](MirrorProgress& progress) -> StoreResult<void> {
            RecordIntake intake(m_environment, progress, m_assets);
            STORE_TRY(body(intake, progress));
            missing = intake.missing();
            hasChanged = intake.hasChanged();
            if (missing.isEmpty()) return {};
            return std::unexpected(StoreError{StoreError::Kind::Other, QStringLiteral("assets are missing")});
        });
        if (done) {
            m_hasChanged = m_hasChanged || hasChanged;
            m_assets.values.clear();
            return {};
        }
        if (missing.isEmpty()) return std::unexpected(done.error());
        MIRROR_TRY(fetch(missing));
    }
}

// What is gone belonged to a version of the record that has been replaced, which a later page will tell.
MirrorResult<void> MirrorPull::fetch(const QSet<QByteArray>& hashes) {
    for (const QByteArray& hash : hashes) {
        const auto content = m_environment.cloud.asset(hash);
        const bool isThere = content || content.error().code != CKError::Code::UnknownItem;
        if (isThere && !content) return std::unexpected(content.error());
        const auto value = content ? valueOf({hash, *content}) : std::nullopt;
        if (value)
            m_assets.values.emplace(hash, *value);
        else
            m_assets.lost.insert(hash);
    }
    return {};
}

} // namespace platform
