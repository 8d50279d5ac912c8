#pragma once

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/tests/Oracle.h"
#include "platform/mirror/tests/Random.h"

namespace simulation {

// Version N of the program knows notes, their segments, and tags; N + 1 also colours and badges, and puts a
// key of its own into records.
enum class Version { Current, Next };

// The user of one device: makes random edits, as a store's save does, and tells the oracle.
class Editor {
public:
    Editor(Random& random, Oracle& oracle)
        : m_random(random)
        , m_oracle(oracle) {}

    void edit(Storage& storage, platform::WallTime wall, Version version);

private:
    using Id = QUuid;

    void create(const QString& entity);
    void change(const Id& id);
    void write(const Id& id, const QString& property, const QCborValue& value);
    void editText(const Id& id, const QString& property);
    QString edited(const QString& text);
    void setTag(const Id& id);
    void remove(const Id& id);
    void undelete();
    void writeFuture(const Id& id);
    platform::Stamp stampFor(Storage::Row& row);
    void markChanged(Storage::Row& row);
    std::vector<Id> shown(const QString& entity) const;

    Random& m_random;
    Oracle& m_oracle;
    Storage* m_storage = nullptr;
    platform::WallTime m_wall = 0;
    Version m_version = Version::Current;
    int m_tokens = 0;
};

} // namespace simulation
