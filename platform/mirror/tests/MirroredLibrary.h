#pragma once

#include "platform/mirror/MirrorCapture.h"
#include "platform/mirror/SqliteMirrorStorage.h"
#include "platform/store/tests/MixedLibrary.h"

namespace mirrored {

// The shelf's model with a text that is merged: the names of notes.
std::shared_ptr<const platform::ManagedObjectModel> model();

// A library whose saves are captured, and the mirror's side of its file. The wall stands still unless a test
// moves it.
struct Device {
    // On the store at `path`, which is made where there is none.
    Device(const QString& path, const QUuid& name,
           std::shared_ptr<const platform::ManagedObjectModel> model = mirrored::model(),
           platform::SqliteStore::Migration migration = platform::SqliteStore::Migration::Refuse);

    std::shared_ptr<platform::ManagedObject> make(const char* entity, const QString& name);
    std::vector<std::shared_ptr<platform::ManagedObject>> all(const char* entity);
    void save();
    void merge();

    // As transactions of their own.
    std::optional<platform::MirroredObject> object(const QUuid& id);

    platform::ObjectState state(const QUuid& id) { return object(id).value().state; }

    void put(const QUuid& id, const platform::MirroredObject& object);
    // Joins a state with what is there, and puts it only where that is news, so that nothing is brought up to
    // date by the way.
    void join(const QUuid& id, const platform::ObjectState& state);
    bool isShown(const QUuid& id);
    std::vector<QUuid> outbox();
    std::vector<QUuid> everything();
    // Everything is as on the server.
    void sendAll();

    platform::Stamp now() const;

    platform::WallTime wall = 1'700'000'000'000;
    QUuid name;
    platform::ManagedObjectContext context;
    std::optional<platform::StoreError> error; // of opening
    std::unique_ptr<platform::SqliteMirrorStorage> storage;
};

} // namespace mirrored
