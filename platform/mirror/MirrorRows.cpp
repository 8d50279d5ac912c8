#include "platform/mirror/MirrorRows.h"

#include "platform/mirror/MirrorTable.h"
#include "platform/store/StoreMetadata.h"

namespace platform {

namespace {

// A null of the database has a type, one of ours has none.
bool isSame(const QVariant& a, const QVariant& b) {
    return a.isNull() == b.isNull() && (a.isNull() || a == b);
}

} // namespace

StoreResult<bool> MirrorRows::isThere(const QString& table, const QUuid& id) {
    auto found = m_connection->scalar(QStringLiteral("SELECT 1 FROM %1 WHERE \"_id\" = ?").arg(table),
                                      {id.toRfc4122()});
    if (!found) return std::unexpected(found.error());
    return found->isValid();
}

StoreResult<std::optional<MirrorRow>> MirrorRows::read(const EntityShape& shape, const QUuid& id,
                                                       const ColumnSet& columns) {
    QStringList names{QStringLiteral("1")};
    std::vector<std::size_t> numbers;
    for (const auto& column : shape.columns) {
        const auto number = static_cast<std::size_t>(column.index);
        if (!columns.test(number)) continue;
        names += column.name;
        numbers.push_back(number);
    }
    std::optional<MirrorRow> row;
    STORE_TRY(m_connection->query(
        QStringLiteral("SELECT %1 FROM %2 WHERE \"_id\" = ?").arg(names.join(u','), shape.table),
        {id.toRfc4122()}, [&](const QSqlQuery& query) {
            row.emplace(shape.entity->attributes.size() + shape.entity->relationships.size());
            for (std::size_t i = 0; i < numbers.size(); ++i)
                (*row)[numbers[i]] = query.value(static_cast<int>(i) + 1);
        }));
    return row;
}

StoreResult<qint64> MirrorRows::revision() {
    if (m_revision) return *m_revision;
    auto last = storeRevision(*m_connection);
    if (!last) return last;
    STORE_TRY(setStoreRevision(*m_connection, *last + 1));
    m_revision = *last + 1;
    return *m_revision;
}

StoreResult<void> MirrorRows::insert(const EntityShape& shape, const QUuid& id, const MirrorRow& row) {
    auto current = revision();
    if (!current) return std::unexpected(current.error());
    QStringList names{QStringLiteral("\"_id\""), QStringLiteral("\"_rev\"")};
    QVariantList values{id.toRfc4122(), *current};
    for (const auto& column : shape.columns) {
        names += column.name;
        values += row[static_cast<std::size_t>(column.index)];
    }
    const QStringList marks(names.size(), QStringLiteral("?"));
    return m_connection->run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                 .arg(shape.table, names.join(u','), marks.join(u',')),
                             values);
}

StoreResult<void> MirrorRows::update(const EntityShape& shape, const QUuid& id, const MirrorRow& before,
                                     const MirrorRow& after) {
    QStringList assignments;
    QVariantList values;
    for (const auto& column : shape.columns) {
        const auto number = static_cast<std::size_t>(column.index);
        if (isSame(before[number], after[number])) continue;
        assignments += column.name + QStringLiteral(" = ?");
        values += after[number];
    }
    if (assignments.isEmpty()) return {};
    auto current = revision();
    if (!current) return std::unexpected(current.error());
    values += *current;
    values += id.toRfc4122();
    return m_connection->runOnOneRow(QStringLiteral("UPDATE %1 SET %2, \"_rev\" = ? WHERE \"_id\" = ?")
                                         .arg(shape.table, assignments.join(u',')),
                                     values);
}

StoreResult<void> MirrorRows::remove(const EntityShape& shape, const QUuid& id) {
    auto current = revision();
    if (!current) return std::unexpected(current.error());
    const QByteArray key = id.toRfc4122();
    for (const auto& set : shape.sets)
        STORE_TRY(m_connection->run(QStringLiteral("DELETE FROM %1 WHERE source = ?").arg(set.table), {key}));
    for (const auto& table : shape.memberships)
        STORE_TRY(m_connection->run(QStringLiteral("DELETE FROM %1 WHERE target = ?").arg(table), {key}));
    STORE_TRY(m_connection->runOnOneRow(QStringLiteral("DELETE FROM %1 WHERE \"_id\" = ?").arg(shape.table),
                                        {key}));
    return m_connection->run(QStringLiteral("INSERT OR REPLACE INTO \"_Deleted\" VALUES (?, ?)"),
                             {key, *current});
}

StoreResult<std::set<QUuid>> MirrorRows::members(const EntityShape::Set& set, const QUuid& source) {
    auto found =
        identities(*m_connection, QStringLiteral("SELECT target FROM %1 WHERE source = ?").arg(set.table),
                   {source.toRfc4122()});
    if (!found) return std::unexpected(found.error());
    return std::set(found->begin(), found->end());
}

StoreResult<void> MirrorRows::setMembers(const EntityShape& shape, const EntityShape::Set& set,
                                         const QUuid& source, const std::set<QUuid>& members) {
    auto before = this->members(set, source);
    if (!before) return std::unexpected(before.error());
    if (*before == members) return {};
    const QByteArray key = source.toRfc4122();
    for (const auto& target : *before)
        if (!members.contains(target))
            STORE_TRY(m_connection->run(
                QStringLiteral("DELETE FROM %1 WHERE source = ? AND target = ?").arg(set.table),
                {key, target.toRfc4122()}));
    for (const auto& target : members)
        if (!before->contains(target))
            STORE_TRY(m_connection->run(QStringLiteral("INSERT INTO %1 VALUES (?, ?)").arg(set.table),
                                        {key, target.toRfc4122()}));
    auto current = revision();
    if (!current) return std::unexpected(current.error());
    return m_connection->runOnOneRow(
        QStringLiteral("UPDATE %1 SET \"_rev\" = ? WHERE \"_id\" = ?").arg(shape.table), {*current, key});
}

QString MirrorRows::referrerQuery(const EntityShape::Referrer& referrer) {
    return QStringLiteral("SELECT \"_id\" AS source FROM %1 WHERE %2 = ?")
        .arg(quoted(referrer.entity->name), referrer.reference->column);
}

QStringList MirrorRows::referrerQueries(const EntityShape& shape) {
    QStringList queries;
    for (const auto& referrer : shape.referrers)
        queries += referrerQuery(referrer);
    for (const auto& table : shape.memberships)
        queries += QStringLiteral("SELECT source FROM %1 WHERE target = ?").arg(table);
    return queries;
}

StoreResult<std::vector<QUuid>> MirrorRows::referrers(const EntityShape& shape, const QUuid& id) {
    std::vector<QUuid> all;
    for (const auto& query : referrerQueries(shape)) {
        auto found = identities(*m_connection, query, {id.toRfc4122()});
        if (!found) return found;
        all.insert(all.end(), found->begin(), found->end());
    }
    return all;
}

StoreResult<std::vector<QUuid>> MirrorRows::referrers(const EntityShape::Referrer& referrer,
                                                      const QUuid& id) {
    return identities(*m_connection, referrerQuery(referrer), {id.toRfc4122()});
}

} // namespace platform
