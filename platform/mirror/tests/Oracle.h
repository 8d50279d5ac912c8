#pragma once

#include "platform/mirror/tests/SimulatedStorage.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace simulation {

// Remembers every edit and who had seen what, by its own means, and says what must be there when all is
// quiet.
class Oracle {
public:
    // Deletions may be forgotten where tombstones were collected and then an old server or device came back,
    // and where a device was copied with changes that it had not sent.
    enum class Deletions { Hold, MayBeForgotten };

    bool isFull() const { return m_writes.size() >= Edits().size() - 16; }

    // The number of the edit.
    std::size_t wrote(const QUuid& object, const QString& place, std::uint64_t time, const QCborValue& value);
    void deleted(const QUuid& object, const Edits& seen);

    void inserted(const QString& token) { m_tokens.insert(token); }

    void removed(const QString& token) { m_removed.insert(token); }

    void setFuture(const QUuid& object, int value) { m_futures[object] = std::max(m_futures[object], value); }

    // What is wrong with the library, or nothing.
    std::optional<std::string> check(const std::map<QUuid, platform::ObjectState>& states,
                                     const std::set<QUuid>& shown, Deletions deletions) const;

    static QString placeOf(const QString& relationship, const QUuid& target);

private:
    struct Write {
        QUuid object;
        QString place; // the property, or the membership
        std::uint64_t time = 0;
        QCborValue value;
    };

    struct Standing {
        std::uint64_t time = 0;
        QCborValue value;
    };

    static std::optional<Standing> standing(const platform::ObjectState& state, const QString& place);
    static bool isKept(const Write& write, const Standing& stands);
    std::optional<std::string> checkLife(const std::map<QUuid, platform::ObjectState>& states,
                                         Deletions deletions) const;
    std::optional<std::string> checkLatest(const std::map<QUuid, platform::ObjectState>& states,
                                           Deletions deletions) const;
    std::optional<std::string> checkFutures(const std::map<QUuid, platform::ObjectState>& states,
                                            Deletions deletions) const;
    std::optional<std::string> checkTokens(const std::map<QUuid, platform::ObjectState>& states,
                                           const std::set<QUuid>& shown) const;
    Edits seenByDeletions(const QUuid& object) const;
    bool mustLive(const QUuid& object) const;

    std::vector<Write> m_writes; // by number
    std::map<QUuid, std::vector<std::size_t>> m_writesOf;
    std::map<QUuid, std::vector<Edits>> m_deletions;
    std::set<QString> m_tokens;
    std::set<QString> m_removed; // by somebody who saw them
    std::map<QUuid, int> m_futures;
};

} // namespace simulation
