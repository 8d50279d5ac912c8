#include "platform/mirror/KeyValueZone.h"

#include "platform/mirror/MirrorCapture.h"
#include "platform/mirror/SqliteMirrorStorage.h"
#include "platform/store/PropertyList.h"
#include "platform/store/PropertyListJson.h"
#include "platform/store/SqliteStore.h"

#include <QtCore/QFileInfo>
#include <QtCore/QJsonValue>

#include <algorithm>
#include <optional>

namespace platform {

namespace {

const QString entityName = QStringLiteral("Settings");
// The one object of a zone of settings, on every device.
const QUuid objectID(0x6f4f4ba5, 0x5a0e, 0x4b6b, 0x9a, 0x4e, 0x2c, 0x1f, 0x5d, 0x0b, 0x7e, 0x31);

// The keys are properties that no model knows: they stay in the state.
std::shared_ptr<const ManagedObjectModel> settingsModel() {
    static const auto model =
        std::make_shared<const ManagedObjectModel>(std::vector<EntityDescription>{{entityName, {}, {}}});
    return model;
}

QString beside(const QString& path, const char* suffix) {
    const QFileInfo file(path);
    return file.path() + u'/' + file.completeBaseName() + QLatin1String(suffix);
}

QCborValue cborFrom(const QVariant& value) {
    return QCborValue::fromJsonValue(jsonFromPropertyList(value));
}

std::optional<QVariant> valueIn(const ObjectState& state, const QString& key) {
    const auto found = state.registers.find(key);
    if (found == state.registers.end() || !found->second.value) return std::nullopt;
    // A record may hold anything.
    return propertyListFrom(propertyListFromJson(found->second.value->toJsonValue()));
}

StoreResult<void> written(bool isWritten) {
    if (isWritten) return {};
    return std::unexpected(
        StoreError{StoreError::Kind::InputOutput, QStringLiteral("the settings cannot be written")});
}

} // namespace

KeyValueZone::KeyValueZone(QString zone, UbiquitousKeyValueStore& values, std::function<WallTime()> wall)
    : MirroredZone(std::move(zone), {})
    , m_values(values)
    , m_storePath(beside(values.path(), ".mirror.sqlite"))
    , m_known(beside(values.path(), ".known.json"))
    , m_wall(std::move(wall)) {}

KeyValueZone::~KeyValueZone() = default;

StoreResult<MirrorStorage*> KeyValueZone::open() {
    if (m_storage) return m_storage.get();
    auto store = SqliteStore::open(m_storePath, settingsModel());
    if (!store) return std::unexpected(store.error());
    STORE_TRY(
        (*store)->setCapture(std::make_shared<MirrorCapture>(settingsModel(), m_wall, QUuid::createUuid())));
    auto storage = SqliteMirrorStorage::open(m_storePath, settingsModel());
    if (!storage) return std::unexpected(storage.error());
    m_storage = std::move(*storage);
    return m_storage.get();
}

void KeyValueZone::close() {
    m_storage.reset();
}

StoreResult<void> KeyValueZone::gather() {
    // What the state has taken over must not be lost from the settings.
    STORE_TRY(written(m_values.synchronize()));
    const auto state = stateWithChanges();
    if (!state) return std::unexpected(state.error());
    apply(*state);
    STORE_TRY(written(m_values.synchronize()));
    return written(m_known.synchronize());
}

StoreResult<ObjectState> KeyValueZone::stateWithChanges() {
    ObjectState state;
    const auto stamped = m_storage->transaction([&]() -> StoreResult<void> {
        auto object = m_storage->object(objectID);
        if (!object) return std::unexpected(object.error());
        if (!*object) object->emplace().state.entity = entityName;
        STORE_TRY(stampChanges(**object));
        state = std::move((*object)->state);
        return {};
    });
    if (!stamped) return std::unexpected(stamped.error());
    return state;
}

StoreResult<void> KeyValueZone::stampChanges(MirroredObject& object) {
    auto progress = m_storage->progress();
    if (!progress) return std::unexpected(progress.error());
    HybridClock clock(progress->clock);
    std::optional<Stamp> stamp;
    const auto values = m_values.objects();
    for (const auto& [key, value] : values.asKeyValueRange()) {
        const auto inState = valueIn(object.state, key);
        if (areSamePropertyLists(value, m_known.object(key)) ||
            (inState && areSamePropertyLists(value, *inState)))
            continue;
        if (!stamp) stamp = Stamp{clock.next(m_wall(), object.state.latest().time), progress->device};
        object.state.write(key, *stamp, cborFrom(value));
    }
    if (!stamp) return {};
    const auto change = m_storage->nextChange();
    if (!change) return std::unexpected(change.error());
    object.change = *change;
    progress->clock = clock.last();
    STORE_TRY(m_storage->setProgress(*progress));
    return m_storage->put(objectID, object);
}

void KeyValueZone::apply(const ObjectState& state) {
    for (const auto& [key, entry] : state.registers) {
        const auto value = valueIn(state, key);
        if (!value) continue;
        const QVariant known = m_known.object(key);
        // Set here this very moment, it is a change for the next time.
        if (!areSamePropertyLists(m_values.object(key), *value) &&
            !m_values.replaceObject(key, known, *value))
            continue;
        if (!areSamePropertyLists(known, *value)) m_known.setObject(key, *value);
    }
}

} // namespace platform
