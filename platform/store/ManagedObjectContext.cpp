#include "platform/store/ManagedObjectContext.h"

#include "platform/foundation/FatalError.h"

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

} // namespace

bool SavedChanges::touches(const QString& entity) const {
    const auto isOfEntity = [&entity](const auto& object) { return object->entity().name == entity; };
    return std::ranges::any_of(inserted, isOfEntity) || std::ranges::any_of(updated, isOfEntity) ||
           std::ranges::any_of(deleted, isOfEntity);
}

ManagedObjectContext::ManagedObjectContext(std::shared_ptr<const ManagedObjectModel> model)
    : m_model(std::move(model)) {}

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
    adopt(object);
    m_inserted.insert(object.get(), object);
}

void ManagedObjectContext::adopt(std::shared_ptr<ManagedObject> object) {
    object->m_context = this;
    object->m_sequence = m_nextSequence++;
    auto& objects = m_objects[object->entity().name];
    const auto sequence = object->m_sequence;
    objects.emplace_hint(objects.end(), sequence, std::move(object));
}

void ManagedObjectContext::deleteObject(ManagedObject& object) {
    if (object.m_context != this) return;
    const auto self = object.shared_from_this();
    const auto& relationships = object.entity().relationships;
    std::vector<std::shared_ptr<ManagedObject>> dependents;
    for (std::size_t i = 0; i < relationships.size(); ++i) {
        const auto related = object.m_related[i];
        for (ManagedObject* target : related) {
            if (relationships[i].deleteRule == DeleteRule::Cascade)
                dependents.push_back(target->shared_from_this());
            object.unlink(static_cast<qsizetype>(i), *target);
        }
    }
    m_updated.remove(&object);
    m_objects[object.entity().name].erase(object.m_sequence);
    // What no save has written needs no deletion in the store.
    if (m_inserted.remove(&object) == 0) m_deleted.insert(&object, self);
    object.m_context = nullptr;
    for (const auto& dependent : dependents)
        deleteObject(*dependent);
}

std::vector<std::shared_ptr<ManagedObject>> ManagedObjectContext::fetch(const FetchRequest& request) const {
    std::vector<std::shared_ptr<ManagedObject>> found;
    const auto objects = m_objects.find(request.entity);
    if (objects == m_objects.end()) return found;
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

bool ManagedObjectContext::hasChanges() const {
    return !m_inserted.isEmpty() || !m_updated.isEmpty() || !m_deleted.isEmpty() || !m_joins.isEmpty();
}

StoreResult<void> ManagedObjectContext::save() {
    if (!m_store)
        return std::unexpected(StoreError{StoreError::Kind::NotLoaded, QStringLiteral("no store is loaded")});
    if (!hasChanges()) return {};
    if (auto missing = missingValue()) return std::unexpected(*missing);
    STORE_TRY(m_store->commit(pendingChanges()));
    m_saves.emit(takePending());
    return {};
}

Subscription ManagedObjectContext::onSave(std::function<void(const SavedChanges&)> observer) {
    return m_saves.observe(std::move(observer));
}

void ManagedObjectContext::noteAttributeChange(ManagedObject& object, qsizetype attribute) {
    noteUpdate(object, attribute);
}

void ManagedObjectContext::noteRelationChange(ManagedObject& source, qsizetype relationship,
                                              ManagedObject& target, qsizetype inverse) {
    const auto note = [this](ManagedObject& object, qsizetype index) {
        noteUpdate(object, static_cast<qsizetype>(object.entity().attributes.size()) + index);
    };
    note(source, relationship);
    note(target, inverse);

    const auto noteJoin = [this](ManagedObject& owner, qsizetype index, ManagedObject& member) {
        const auto& description = owner.entity().relationships[static_cast<std::size_t>(index)];
        if (!SqliteStore::ownsJoinTable(*m_model, owner.entity(), description)) return false;
        const bool joined = owner.m_related[static_cast<std::size_t>(index)].contains(&member);
        m_joins.insert(
            {SqliteStore::joinTable(owner.entity(), description), owner.objectID(), member.objectID()},
            joined);
        return true;
    };
    if (!noteJoin(source, relationship, target)) noteJoin(target, inverse, source);
}

void ManagedObjectContext::noteUpdate(ManagedObject& object, qsizetype column) {
    if (!m_inserted.contains(&object)) m_updated[&object].insert(column);
}

StoreResult<void> ManagedObjectContext::loadGraph(SqliteStore& store) {
    struct PendingLink {
        ManagedObject* source;
        std::size_t relationship;
        QUuid target;
    };

    std::vector<std::shared_ptr<ManagedObject>> ordered;
    std::map<QString, QHash<QUuid, ManagedObject*>> loaded;
    std::vector<PendingLink> links;
    for (const auto& entity : m_model->entities()) {
        auto& objects = loaded[entity.name];
        STORE_TRY(store.readRows(entity, [&](SqliteStore::Row row) {
            auto object = entity.makeObject();
            object->m_objectID = row.objectID;
            object->m_values = std::move(row.values);
            for (std::size_t i = 0; i < row.toOne.size(); ++i)
                if (!row.toOne[i].isNull()) links.push_back({object.get(), i, row.toOne[i]});
            objects.insert(row.objectID, object.get());
            ordered.push_back(std::move(object));
        }));
        for (std::size_t i = 0; i < entity.relationships.size(); ++i) {
            if (!SqliteStore::ownsJoinTable(*m_model, entity, entity.relationships[i])) continue;
            STORE_TRY(store.readJoins(
                entity, entity.relationships[i], [&](const QUuid& source, const QUuid& target) {
                    if (const auto found = objects.constFind(source); found != objects.constEnd())
                        links.push_back({*found, i, target});
                }));
        }
    }
    for (const auto& link : links) {
        const auto& relationship = link.source->entity().relationships[link.relationship];
        const auto& targets = loaded[relationship.destination];
        const auto target = targets.constFind(link.target);
        if (target == targets.constEnd()) continue;
        link.source->m_related[link.relationship].insert(*target);
        (*target)->m_related[static_cast<std::size_t>(m_model->inverseIndex(relationship))].insert(
            link.source);
    }
    for (auto& object : ordered)
        adopt(std::move(object));
    return {};
}

std::optional<StoreError> ManagedObjectContext::missingValue() const {
    const auto check = [](const ManagedObject& object) -> std::optional<StoreError> {
        const auto& attributes = object.entity().attributes;
        for (std::size_t i = 0; i < attributes.size(); ++i)
            if (attributes[i].presence == Presence::Required &&
                object.value(static_cast<qsizetype>(i)).isNull())
                return StoreError{
                    StoreError::Kind::Constraint,
                    QStringLiteral("%1.%2 is absent").arg(object.entity().name, attributes[i].name)};
        return std::nullopt;
    };
    for (const auto& object : m_inserted)
        if (auto missing = check(*object)) return missing;
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it)
        if (auto missing = check(*it.key())) return missing;
    return std::nullopt;
}

StoreChanges ManagedObjectContext::pendingChanges() const {
    StoreChanges changes;
    for (const auto& object : m_inserted)
        changes.inserted.push_back(object.get());
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it) {
        // A to-many change alone is no column of this object's own row.
        QSet<qsizetype> columns;
        const auto& entity = it.key()->entity();
        const auto attributes = static_cast<qsizetype>(entity.attributes.size());
        for (const qsizetype column : *it)
            if (column < attributes ||
                entity.relationships[static_cast<std::size_t>(column - attributes)].cardinality ==
                    Cardinality::ToOne)
                columns.insert(column);
        if (!columns.isEmpty()) changes.updated.emplace_back(it.key(), columns);
    }
    for (const auto& object : m_deleted)
        changes.deleted.push_back(object.get());
    for (auto it = m_joins.constBegin(); it != m_joins.constEnd(); ++it)
        (*it ? changes.joined : changes.parted).push_back(it.key());
    return changes;
}

SavedChanges ManagedObjectContext::takePending() {
    SavedChanges saved;
    for (const auto& object : m_inserted)
        saved.inserted.push_back(object);
    for (auto it = m_updated.constBegin(); it != m_updated.constEnd(); ++it)
        saved.updated.push_back(it.key()->shared_from_this());
    for (const auto& object : m_deleted)
        saved.deleted.push_back(object);
    m_inserted.clear();
    m_updated.clear();
    m_deleted.clear();
    m_joins.clear();
    return saved;
}

} // namespace platform
