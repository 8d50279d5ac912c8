#include "platform/mirror/tests/MirroredLibrary.h"

#include <gtest/gtest.h>

namespace mirrored {

using namespace platform;

std::shared_ptr<const ManagedObjectModel> model() {
    auto entities = shelf::makeModel()->entities();
    entities[3].attributes[shelf::Name].conflict = Conflict::MergeText;
    return std::make_shared<const ManagedObjectModel>(std::move(entities));
}

Device::Device(const QString& path, const QUuid& deviceName, std::shared_ptr<const ManagedObjectModel> model,
               SqliteStore::Migration migration)
    : name(deviceName)
    , context(model) {
    const auto open = [&]() -> StoreResult<void> {
        auto store = SqliteStore::open(path, model, migration);
        if (!store) return std::unexpected(store.error());
        STORE_TRY(
            (*store)->setCapture(std::make_shared<MirrorCapture>(model, [this] { return wall; }, name)));
        STORE_TRY(context.setStore(std::move(*store)));
        auto opened = SqliteMirrorStorage::open(path, model);
        if (!opened) return std::unexpected(opened.error());
        storage = std::move(*opened);
        return {};
    };
    if (auto opened = open(); !opened) error = opened.error();
}

std::shared_ptr<ManagedObject> Device::make(const char* entity, const QString& named) {
    auto object = makeDetached(context.model().entity(QString::fromLatin1(entity)));
    context.insert(object);
    object->setValue(0, named);
    return object;
}

std::vector<std::shared_ptr<ManagedObject>> Device::all(const char* entity) {
    return context.fetch({QString::fromLatin1(entity), {}, {}, {}});
}

void Device::save() {
    const auto saved = context.save();
    ASSERT_TRUE(saved) << saved.error().message.toStdString();
}

void Device::merge() {
    const auto merged = context.mergeChanges();
    ASSERT_TRUE(merged) << merged.error().message.toStdString();
}

namespace {

// The result of a transaction that has to work.
template <typename T>
T ask(SqliteMirrorStorage& storage, const std::function<StoreResult<T>()>& question) {
    T answer{};
    const auto done = storage.transaction([&]() -> StoreResult<void> {
        auto result = question();
        if (!result) return std::unexpected(result.error());
        answer = std::move(*result);
        return {};
    });
    EXPECT_TRUE(done) << done.error().message.toStdString();
    return answer;
}

} // namespace

std::optional<MirroredObject> Device::object(const QUuid& id) {
    return ask<std::optional<MirroredObject>>(*storage, [&] { return storage->object(id); });
}

void Device::put(const QUuid& id, const MirroredObject& object) {
    const auto done = storage->transaction([&] { return storage->put(id, object); });
    ASSERT_TRUE(done) << done.error().message.toStdString();
}

void Device::join(const QUuid& id, const ObjectState& state) {
    const auto done = storage->transaction([&]() -> StoreResult<void> {
        auto mine = storage->object(id);
        if (!mine) return std::unexpected(mine.error());
        auto object = mine->value_or(MirroredObject());
        object.state.entity = state.entity;
        object.state.join(state);
        if (*mine && (*mine)->state == object.state) return {};
        return storage->put(id, object);
    });
    ASSERT_TRUE(done) << done.error().message.toStdString();
}

bool Device::isShown(const QUuid& id) {
    return ask<bool>(*storage, [&] { return storage->isShown(id); });
}

std::vector<QUuid> Device::outbox() {
    return ask<std::vector<QUuid>>(*storage, [this] { return storage->outbox(1'000'000); });
}

std::vector<QUuid> Device::everything() {
    return ask<std::vector<QUuid>>(*storage, [this] { return storage->all(); });
}

void Device::sendAll() {
    for (const auto& id : outbox()) {
        auto sent = object(id).value();
        sent.change = 0;
        sent.revision = 1;
        sent.bases.clear();
        put(id, sent);
    }
}

Stamp Device::now() const {
    return {HybridClock::fromWall(wall), name};
}

} // namespace mirrored
