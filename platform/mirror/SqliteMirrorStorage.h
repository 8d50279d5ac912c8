#pragma once

#include "platform/mirror/MirrorView.h"

#include <memory>

namespace platform {

// The local side of a mirror in a store's file, over a connection of its own: saves of the file's contexts
// come in between its transactions, and learn what these have changed as of any other writer. One thread, the
// one that opened it.
class SqliteMirrorStorage final : public MirrorStorage {
public:
    // Of a store that was opened with this model and a MirrorCapture before. Errors: as of
    // SqliteStore::metadata(), and Incompatible where the store has another model.
    static StoreResult<std::unique_ptr<SqliteMirrorStorage>>
    open(const QString& path, std::shared_ptr<const ManagedObjectModel> model);

    // Busy where another connection does not end its transaction in time; it may be tried again.
    StoreResult<void> transaction(const std::function<StoreResult<void>()>& body) override;

    StoreResult<MirrorProgress> progress() override;
    StoreResult<void> setProgress(const MirrorProgress& progress) override;

    StoreResult<std::optional<MirroredObject>> object(const QUuid& id) override;
    StoreResult<void> put(const QUuid& id, const MirroredObject& object) override;
    StoreResult<void> remove(const QUuid& id) override;

    StoreResult<bool> isShown(const QUuid& id) override;
    StoreResult<qint64> shownCount() override;

    StoreResult<qint64> nextChange() override;
    StoreResult<std::vector<QUuid>> outbox(qsizetype limit) override;
    StoreResult<std::vector<QUuid>> notMetBy(qint64 reading) override;
    StoreResult<std::vector<QUuid>> deadUpTo(qint64 upTo) override;
    StoreResult<std::vector<QUuid>> parked() override;
    StoreResult<std::vector<QUuid>> all() override;

private:
    SqliteMirrorStorage(std::unique_ptr<SqliteConnection> connection,
                        std::shared_ptr<const ManagedObjectModel> model);

    MirrorView& view();

    std::unique_ptr<SqliteConnection> m_connection;
    MirrorShape m_shape;
    MirrorTable m_table;
    std::optional<MirrorView> m_view; // of the transaction
};

} // namespace platform
