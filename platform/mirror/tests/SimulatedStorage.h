#pragma once

#include "platform/mirror/LibraryView.h"
#include "platform/mirror/MirrorStorage.h"
#include "platform/mirror/tests/SimulatedServer.h"

namespace simulation {

// What is a part of what, in the library of the simulation.
const std::vector<platform::PartOf>& partsOfLibrary();

// A device's store in memory. Transactions that fail or are thrown out of leave nothing behind.
class Storage : public platform::MirrorStorage {
public:
    struct Row {
        platform::MirroredObject object;
        Edits edits; // for the oracle
    };

    // What the pages that were read last brought, for the oracle.
    struct Arrival {
        qint64 revision = 0;
        Edits edits;
    };

    std::map<QUuid, Row> rows;
    platform::MirrorProgress status;
    qint64 changes = 0;
    std::map<QUuid, Arrival> arrivals;
    // Called at every boundary; may throw.
    std::function<void()> onStep = [] {};

    void copyFrom(const Storage& other);
    std::map<QUuid, platform::ObjectState> states() const;

    std::set<QUuid> shown() const { return platform::shownObjects(states(), partsOfLibrary()); }

    platform::StoreResult<void>
    transaction(const std::function<platform::StoreResult<void>()>& body) override;
    platform::StoreResult<platform::MirrorProgress> progress() override;
    platform::StoreResult<void> setProgress(const platform::MirrorProgress& progress) override;
    platform::StoreResult<std::optional<platform::MirroredObject>> object(const QUuid& id) override;
    platform::StoreResult<void> put(const QUuid& id, const platform::MirroredObject& object) override;
    platform::StoreResult<void> remove(const QUuid& id) override;
    platform::StoreResult<bool> isShown(const QUuid& id) override;
    platform::StoreResult<qint64> shownCount() override;
    platform::StoreResult<qint64> nextChange() override;
    platform::StoreResult<std::vector<QUuid>> outbox(qsizetype limit) override;
    platform::StoreResult<std::vector<QUuid>> notMetBy(qint64 reading) override;
    platform::StoreResult<std::vector<QUuid>> deadUpTo(qint64 upTo) override;
    platform::StoreResult<std::vector<QUuid>> parked() override;
    platform::StoreResult<std::vector<QUuid>> all() override;

private:
    class Undo;
    void remember(const QUuid& id);
    template <typename Predicate>
    std::vector<QUuid> select(Predicate predicate) const;

    std::map<QUuid, std::optional<Row>> m_before;
    bool m_isInside = false;
};

} // namespace simulation
