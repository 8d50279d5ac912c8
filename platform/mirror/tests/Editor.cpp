#include "platform/mirror/tests/Editor.h"

#include "platform/mirror/TextValue.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace simulation {

using namespace platform;

namespace {

const QString note = QStringLiteral("Note");
const QString segment = QStringLiteral("Segment");
const QString tag = QStringLiteral("Tag");
const QString badge = QStringLiteral("Badge");
const QString title = QStringLiteral("title");
const QString code = QStringLiteral("code");
const QString text = QStringLiteral("text");
const QString owner = QStringLiteral("note");
const QString tags = QStringLiteral("tags");
const QString colour = QStringLiteral("colour");
const QString future = QStringLiteral("future");

std::set<QString> tokensOf(const QString& string) {
    static const QRegularExpression token(QStringLiteral("<[0-9]+>"));
    std::set<QString> tokens;
    for (auto found = token.globalMatch(string); found.hasNext();)
        tokens.insert(found.next().captured());
    return tokens;
}

QCborValue reference(const QUuid& id) {
    return QCborValue(id.toRfc4122());
}

} // namespace

void Editor::edit(Storage& storage, WallTime wall, Version version) {
    if (m_oracle.isFull()) return;
    m_storage = &storage;
    m_wall = wall;
    m_version = version;
    const auto all = shown({});
    const int choice = m_random.below(100);
    if (all.empty() || choice < 12)
        create(choice % 4 == 0 ? tag : note);
    else if (choice < 20 && !shown(note).empty())
        create(segment);
    else if (choice < 22 && version == Version::Next)
        create(badge);
    else if (choice < 30)
        remove(m_random.of(all));
    else if (choice < 32)
        undelete();
    else
        change(m_random.of(all));
}

void Editor::create(const QString& entity) {
    const QUuid id = m_random.id();
    const auto notes = shown(note);
    m_storage->rows[id].object.state.entity = entity;
    write(id, title, QCborValue(m_random.below(1000)));
    if (entity == note) editText(id, code);
    if (entity != segment) return;
    write(id, owner, reference(m_random.of(notes)));
    editText(id, text);
}

void Editor::change(const QUuid& id) {
    const QString& entity = m_storage->rows.at(id).object.state.entity;
    const int choice = m_random.below(100);
    if (choice < 30) return write(id, title, QCborValue(m_random.below(1000)));
    if (choice < 40 && m_version == Version::Next) return writeFuture(id);
    if (entity == note) return choice < 75 ? editText(id, code) : setTag(id);
    if (entity != segment) return;
    const auto notes = shown(note);
    if (choice < 80 || notes.empty()) return editText(id, text);
    write(id, owner, reference(m_random.of(notes)));
}

void Editor::write(const QUuid& id, const QString& property, const QCborValue& value) {
    Storage::Row& row = m_storage->rows.at(id);
    const Stamp stamp = stampFor(row);
    row.object.state.write(property, stamp, value);
    row.edits.set(m_oracle.wrote(id, property, stamp.time, value));
    markChanged(row);
}

void Editor::editText(const QUuid& id, const QString& property) {
    Storage::Row& row = m_storage->rows.at(id);
    ObjectState& state = row.object.state;
    const auto old = state.registers.find(property);
    QString before;
    if (old != state.registers.end()) {
        before = textOf(*old->second.value).value_or(QString());
        if (row.object.revision != 0) row.object.bases.try_emplace(property, old->second);
    }
    const QString after = edited(before);
    const auto kept = tokensOf(after);
    for (const QString& token : tokensOf(before))
        if (!kept.contains(token)) m_oracle.removed(token);
    const Stamp stamp = stampFor(row);
    state.writeText(property, stamp, textValue(after));
    row.edits.set(m_oracle.wrote(id, property, stamp.time, QCborValue(QCborValue::Undefined)));
    markChanged(row);
}

// Lines are put in, replaced, lengthened and taken out.
QString Editor::edited(const QString& before) {
    QStringList lines = before.isEmpty() ? QStringList() : before.split(u'\n');
    const QString token = QStringLiteral("<%1>").arg(++m_tokens);
    const int line = lines.isEmpty() ? 0 : m_random.below(static_cast<int>(lines.size()));
    const int choice = m_random.below(10);
    if (choice == 0 && lines.size() > 1) {
        lines.removeAt(line);
        return lines.join(u'\n');
    }
    m_oracle.inserted(token);
    if (choice < 3 && !lines.isEmpty())
        lines[line] = token;
    else if (choice < 5 && !lines.isEmpty())
        lines[line] += token;
    else
        lines.insert(m_random.below(static_cast<int>(lines.size()) + 1), token);
    if (m_random.perMille(3)) lines.append(QString(70'000, u'x'));
    return lines.join(u'\n');
}

void Editor::setTag(const QUuid& id) {
    const auto known = shown(tag);
    if (known.empty()) return;
    Storage::Row& row = m_storage->rows.at(id);
    const QUuid target = m_random.of(known);
    const bool isMember = m_random.below(3) != 0;
    const Stamp stamp = stampFor(row);
    row.object.state.setMember(tags, target, stamp, isMember);
    row.edits.set(m_oracle.wrote(id, Oracle::placeOf(tags, target), stamp.time, QCborValue(isMember)));
    markChanged(row);
}

// With its segments, as the model's cascade has it.
void Editor::remove(const QUuid& id) {
    for (const QUuid& part : shown(segment))
        if (m_storage->rows.at(part).object.state.registers.at(owner).value == reference(id)) remove(part);
    Storage::Row& row = m_storage->rows.at(id);
    for (const auto& [property, entry] : row.object.state.registers)
        if (!entry.seen.isEmpty())
            for (const QString& token : tokensOf(textOf(*entry.value).value_or(QString())))
                m_oracle.removed(token);
    m_oracle.deleted(id, row.edits);
    row.object.state.markDeleted(stampFor(row).time);
    markChanged(row);
}

void Editor::undelete() {
    std::vector<QUuid> dead;
    for (const auto& [id, row] : m_storage->rows)
        if (!row.object.state.isAlive()) dead.push_back(id);
    if (dead.empty()) return;
    const QUuid id = m_random.of(dead);
    Storage::Row& row = m_storage->rows.at(id);
    const Stamp stamp = stampFor(row);
    row.object.state.touch(stamp);
    row.edits.set(m_oracle.wrote(id, QStringLiteral(".touched"), stamp.time, QCborValue(nullptr)));
    markChanged(row);
}

void Editor::writeFuture(const QUuid& id) {
    Storage::Row& row = m_storage->rows.at(id);
    if (m_random.below(2) == 0) return write(id, colour, QCborValue(m_random.below(1000)));
    const int value = static_cast<int>(row.object.state.unknown.value(future).toInteger()) + 1;
    row.object.state.unknown[future] = value;
    m_oracle.setFuture(id, value);
    markChanged(row);
}

Stamp Editor::stampFor(Storage::Row& row) {
    HybridClock clock(m_storage->status.clock);
    const Stamp stamp{clock.next(m_wall, row.object.state.latest().time), m_storage->status.device};
    m_storage->status.clock = clock.last();
    return stamp;
}

void Editor::markChanged(Storage::Row& row) {
    row.object.change = ++m_storage->changes;
}

std::vector<QUuid> Editor::shown(const QString& entity) const {
    std::vector<QUuid> ids;
    for (const QUuid& id : m_storage->shown())
        if (entity.isEmpty() || m_storage->rows.at(id).object.state.entity == entity) ids.push_back(id);
    return ids;
}

} // namespace simulation
