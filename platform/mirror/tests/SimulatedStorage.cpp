#include "platform/mirror/tests/SimulatedStorage.h"

#include "platform/foundation/FatalError.h"

#include <algorithm>

namespace simulation {

using namespace platform;

const std::vector<PartOf>& partsOfLibrary() {
    static const std::vector<PartOf> parts{{QStringLiteral("Segment"), QStringLiteral("note")}};
    return parts;
}

// Puts everything back unless the transaction was committed.
class Storage::Undo {
public:
    explicit Undo(Storage& storage)
        : m_storage(storage)
        , m_status(storage.status)
        , m_changes(storage.changes) {
        if (m_storage.m_isInside) fatalError("a transaction within another");
        m_storage.m_isInside = true;
    }

    ~Undo() {
        m_storage.m_isInside = false;
        if (!m_isCommitted) undo();
        m_storage.m_before.clear();
    }

    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;

    void commit() { m_isCommitted = true; }

private:
    void undo() {
        for (auto& [id, row] : m_storage.m_before)
            if (row)
                m_storage.rows[id] = std::move(*row);
            else
                m_storage.rows.erase(id);
        m_storage.status = m_status;
        m_storage.changes = m_changes;
    }

    Storage& m_storage;
    MirrorProgress m_status;
    qint64 m_changes;
    bool m_isCommitted = false;
};

void Storage::copyFrom(const Storage& other) {
    rows = other.rows;
    status = other.status;
    changes = other.changes;
}

std::map<QUuid, ObjectState> Storage::states() const {
    std::map<QUuid, ObjectState> states;
    for (const auto& [id, row] : rows)
        states.emplace(id, row.object.state);
    return states;
}

StoreResult<void> Storage::transaction(const std::function<StoreResult<void>()>& body) {
    {
        Undo undo(*this);
        onStep();
        STORE_TRY(body());
        onStep();
        undo.commit();
    }
    onStep(); // committed, and nobody learns of it
    return {};
}

StoreResult<MirrorProgress> Storage::progress() {
    return status;
}

StoreResult<void> Storage::setProgress(const MirrorProgress& progress) {
    onStep();
    status = progress;
    return {};
}

StoreResult<std::optional<MirroredObject>> Storage::object(const QUuid& id) {
    const auto row = rows.find(id);
    if (row == rows.end()) return std::optional<MirroredObject>();
    return row->second.object;
}

StoreResult<void> Storage::put(const QUuid& id, const MirroredObject& object) {
    onStep();
    remember(id);
    Row& row = rows[id];
    row.object = object;
    const auto arrival = arrivals.find(id);
    if (arrival != arrivals.end() && arrival->second.revision == object.revision && object.parked.isEmpty())
        row.edits |= arrival->second.edits;
    return {};
}

StoreResult<void> Storage::remove(const QUuid& id) {
    onStep();
    remember(id);
    const auto& state = rows[id].object.state;
    if (!state.entity.isEmpty() && state.isAlive()) fatalError("a living object was to be removed");
    rows.erase(id);
    return {};
}

StoreResult<bool> Storage::isShown(const QUuid& id) {
    return shown().contains(id);
}

StoreResult<qint64> Storage::shownCount() {
    return static_cast<qint64>(shown().size());
}

StoreResult<qint64> Storage::nextChange() {
    return ++changes;
}

StoreResult<std::vector<QUuid>> Storage::outbox(qsizetype limit) {
    auto ids =
        select([](const MirroredObject& object) { return object.change != 0 && object.parked.isEmpty(); });
    std::ranges::sort(ids, {}, [this](const QUuid& id) { return rows.at(id).object.change; });
    if (std::ssize(ids) > limit) ids.resize(limit);
    return ids;
}

StoreResult<std::vector<QUuid>> Storage::notMetBy(qint64 reading) {
    return select([reading](const MirroredObject& object) {
        return object.change == 0 && object.revision > 0 && object.reading < reading;
    });
}

StoreResult<std::vector<QUuid>> Storage::deadUpTo(qint64 upTo) {
    return select([upTo](const MirroredObject& object) {
        return object.change == 0 && object.revision > 0 && object.revision <= upTo &&
               !object.state.isAlive();
    });
}

StoreResult<std::vector<QUuid>> Storage::parked() {
    return select([](const MirroredObject& object) { return !object.parked.isEmpty(); });
}

StoreResult<std::vector<QUuid>> Storage::all() {
    return select([](const MirroredObject&) { return true; });
}

void Storage::remember(const QUuid& id) {
    const auto row = rows.find(id);
    m_before.try_emplace(id, row == rows.end() ? std::nullopt : std::optional(row->second));
}

template <typename Predicate>
std::vector<QUuid> Storage::select(Predicate predicate) const {
    std::vector<QUuid> ids;
    for (const auto& [id, row] : rows)
        if (predicate(row.object)) ids.push_back(id);
    return ids;
}

} // namespace simulation
