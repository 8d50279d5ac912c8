#include "platform/store/ManagedObjectContext.h"

#include "platform/foundation/FatalError.h"
#include "platform/store/RemoteMerge.h"
#include "platform/store/StoreWatcher.h"

#include <algorithm>

namespace platform {

namespace {

bool comesBefore(const ManagedObject& a, const ManagedObject& b,
                 const std::vector<SortDescriptor>& descriptors) {
    for (const auto& descriptor : descriptors) {
        const auto order = QVariant::compare(a.value(descriptor.attribute), b.value(descriptor.attribute));
        if (order == QPartialOrdering::Less) return descriptor.order == Qt::AscendingOrder;
        if (order == QPartialOrdering::Greater) return descriptor.order == Qt::DescendingOrder;
    }
    return false;
}

QVariant emptyValue(const AttributeDescription& attribute) {
    if (attribute.presence == Presence::Optional) return {};
    if (attribute.type == AttributeType::String) return QStringLiteral("");
    if (attribute.type == AttributeType::Binary) return QByteArray("");
    fatalError("Only texts and data are loaded on demand");
}

} // namespace

ManagedObjectContext::ManagedObjectContext(std::shared_ptr<const ManagedObjectModel> model)
    : m_model(std::move(model))
    , m_pending(m_model) {}

ManagedObjectContext::~ManagedObjectContext() {
    for (auto& [entity, objects] : m_objects)
        for (const auto& [sequence, object] : objects)
            object->m_context = nullptr;
}

StoreResult<void> ManagedObjectContext::setStore(std::unique_ptr<SqliteStore> store) {
    if (m_store || !m_objects.empty()) fatalError("A context gets its store once, while it is empty");
    STORE_TRY(loadGraph(*store));
    m_store = std::move(store);
    return {};
}

void ManagedObjectContext::insert(const std::shared_ptr<ManagedObject>& object) {
    if (object->m_context == this) return;
    if (object->m_context) fatalError("An object belongs to at most one context");
    // Another connection may have brought the object back while this one was detached: then they are two.
    if (m_byID.contains(object->objectID())) object->m_objectID = QUuid::createUuid();
    adopt(object);
    m_pending.insert(object);
    // What a detached object had in the store alone went with its row.
    for (std::size_t i = 0; i < object->m_values.size(); ++i) {
        if (!object->isFault(static_cast<qsizetype>(i))) continue;
        const auto value = fulfilFault(*object, static_cast<qsizetype>(i));
        if (!value && value.error().kind == StoreError::Kind::Missing)
            object->m_values[i] = emptyValue(object->entity().attributes[i]);
    }
}

void ManagedObjectContext::adopt(std::shared_ptr<ManagedObject> object) {
    object->m_context = this;
    object->m_sequence = m_nextSequence++;
    m_byID.insert(object->objectID(), object.get());
    auto& objects = m_objects[object->entity().name];
    const auto sequence = object->m_sequence;
    objects.emplace_hint(objects.end(), sequence, std::move(object));
}

// The object lives on with whoever holds it.
void ManagedObjectContext::release(ManagedObject& object) {
    m_byID.remove(object.objectID());
    object.m_context = nullptr;
    m_objects[object.entity().name].erase(object.m_sequence);
}

void ManagedObjectContext::deleteObject(ManagedObject& object) {
    if (object.m_context != this) return;
    const auto self = object.shared_from_this();
    const auto& relationships = object.entity().relationships;
    std::vector<std::shared_ptr<ManagedObject>> dependents;
    for (std::size_t i = 0; i < relationships.size(); ++i) {
        for (ManagedObject* target : object.m_related[i].toVector()) {
            if (relationships[i].deleteRule == DeleteRule::Cascade)
                dependents.push_back(target->shared_from_this());
            object.unlink(static_cast<qsizetype>(i), *target);
        }
    }
    m_pending.remove(self);
    release(object);
    for (const auto& dependent : dependents)
        deleteObject(*dependent);
}

std::vector<std::shared_ptr<ManagedObject>> ManagedObjectContext::fetch(const FetchRequest& request) const {
    std::vector<std::shared_ptr<ManagedObject>> found;
    const auto objects = m_objects.find(request.entity);
    if (objects == m_objects.end()) return found;
    found.reserve(objects->second.size());
    for (const auto& [sequence, object] : objects->second)
        if (!request.predicate || request.predicate(*object)) found.push_back(object);
    if (!request.sortDescriptors.empty())
        std::ranges::stable_sort(found, [&](const auto& a, const auto& b) {
            return comesBefore(*a, *b, request.sortDescriptors);
        });
    if (request.limit && *request.limit < static_cast<qsizetype>(found.size()))
        found.resize(static_cast<std::size_t>(*request.limit));
    return found;
}

StoreResult<void> ManagedObjectContext::save() {
    if (!m_store)
        return std::unexpected(StoreError{StoreError::Kind::NotLoaded, QStringLiteral("no store is loaded")});
    if (!hasChanges()) return {};
    if (auto missing = m_pending.missingValue()) return std::unexpected(*missing);
    ContextChanges changes;
    auto saved =
        m_store->commit([&](const RemoteChanges& remote) { changes = RemoteMerge(*this).apply(remote); },
                        [this] { return m_pending.toWrite(); });
    if (saved) {
        ContextChanges written = m_pending.take();
        for (const auto& object : written.inserted)
            noteLoaded(*object);
        std::ranges::move(written.inserted, std::back_inserter(changes.inserted));
        std::ranges::move(written.updated, std::back_inserter(changes.updated));
        std::ranges::move(written.deleted, std::back_inserter(changes.deleted));
    } else {
        m_pending.noteFailedSave();
    }
    if (!changes.isEmpty()) m_changes.emit(changes);
    return saved;
}

StoreResult<void> ManagedObjectContext::mergeChanges() {
    if (!m_store) return {};
    ContextChanges changes;
    auto read = m_store->readRemoteChanges(
        [&](const RemoteChanges& remote) { changes = RemoteMerge(*this).apply(remote); });
    if (!changes.isEmpty()) m_changes.emit(changes);
    return read;
}

void ManagedObjectContext::setAutomaticallyMergesChangesFromParent(bool automatically) {
    m_watcher.reset();
    if (automatically && m_store)
        m_watcher = std::make_unique<StoreWatcher>(m_store->path(), [this] { return mergeChanges(); });
}

Subscription ManagedObjectContext::onChange(std::function<void(const ContextChanges&)> observer) {
    return m_changes.observe(std::move(observer));
}

std::shared_ptr<ManagedObject> ManagedObjectContext::makeObject(StoreRow row) const {
    auto object = makeDetached(*row.entity);
    object->m_objectID = row.objectID;
    object->m_values = std::move(row.values);
    object->turnIntoFaults();
    return object;
}

StoreResult<void> ManagedObjectContext::loadGraph(SqliteStore& store) {
    struct Link {
        ManagedObject* source;
        std::size_t relationship;
        QUuid target;
    };

    std::vector<std::shared_ptr<ManagedObject>> loaded;
    QHash<QUuid, ManagedObject*> byID;
    std::vector<Link> links;
    STORE_TRY(store.readAll(
        [&](StoreRow row) {
            const auto toOne = std::move(row.toOne);
            auto object = makeObject(std::move(row));
            for (std::size_t i = 0; i < toOne.size(); ++i)
                if (!toOne[i].isNull()) links.push_back({object.get(), i, toOne[i]});
            byID.insert(object->objectID(), object.get());
            loaded.push_back(std::move(object));
        },
        [&](const JoinRow& row) {
            auto* source = byID.value(row.source);
            if (!source || !isEndOf(*source, m_model->inverseOf(*row.relationship))) return;
            const auto index = row.relationship - source->entity().relationships.data();
            links.push_back({source, static_cast<std::size_t>(index), row.target});
        }));
    if (byID.size() != static_cast<qsizetype>(loaded.size()))
        return std::unexpected(
            StoreError{StoreError::Kind::Corrupt, QStringLiteral("two objects have one identity")});
    for (auto& object : loaded)
        adopt(std::move(object));
    for (const auto& link : links) {
        auto* target = m_byID.value(link.target);
        if (target && isEndOf(*target, link.source->entity().relationships[link.relationship]))
            link.source->connect(static_cast<qsizetype>(link.relationship), *target);
    }
    return {};
}

void ManagedObjectContext::makeWhole(const ManagedObject& object) {
    if (!m_store || object.isWhole()) return;
    // Where that fails the change stands all the same, and only a deletion elsewhere would win over it. So it
    // does not wait for a lock, which a loop over a thousand objects would do a thousand times.
    (void)m_store->setPatience(SqliteConnection::Patience::None);
    for (std::size_t i = 0; i < object.m_values.size(); ++i)
        if (object.isFault(static_cast<qsizetype>(i))) (void)fulfilFault(object, static_cast<qsizetype>(i));
    (void)m_store->setPatience(SqliteConnection::Patience::Normal);
}

void ManagedObjectContext::noteUpdate(ManagedObject& object, qsizetype attribute, const QVariant& before) {
    const auto& description = object.entity().attributes[static_cast<std::size_t>(attribute)];
    const bool isKnown = before.metaType() != QMetaType::fromType<ManagedObject::Fault>();
    if (description.conflict == Conflict::MergeText && isKnown)
        m_pending.updateText(object, attribute, before);
    else
        m_pending.update(object, attribute);
}

StoreResult<QVariant> ManagedObjectContext::fulfilFault(const ManagedObject& object, qsizetype attribute) {
    if (!m_store)
        return std::unexpected(StoreError{StoreError::Kind::NotLoaded, QStringLiteral("no store is loaded")});
    auto value = m_store->readValue(object.entity(), attribute, object.objectID());
    if (!value) return value;
    object.m_values[static_cast<std::size_t>(attribute)] = *value;
    noteLoaded(object);
    return value;
}

void ManagedObjectContext::noteLoaded(const ManagedObject& object) {
    m_loaded.push_back(object.weak_from_this());
    m_loadedBytes += object.loadedBytes();
    if (m_loadedBytes > m_loadedLimit) giveUpLoadedValues(object);
}

void ManagedObjectContext::giveUpLoadedValues(const ManagedObject& inUse) {
    m_loadedBytes = 0;
    std::erase_if(m_loaded, [&](const std::weak_ptr<const ManagedObject>& entry) {
        const auto object = entry.lock();
        if (!object || object->m_context != this) return true;
        if (object.get() == &inUse || m_pending.isChanged(*object)) {
            m_loadedBytes += object->loadedBytes();
            return false;
        }
        object->turnIntoFaults();
        return true;
    });
    // What has to stay is not looked through again until as much has come in addition.
    m_loadedLimit = std::max<qsizetype>(loadedBudget, 2 * m_loadedBytes);
}

} // namespace platform
