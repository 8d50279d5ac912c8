#pragma once

#include <QtCore/QByteArray>

#include <optional>
#include <random>
#include <vector>

// A file as a power cut would meet it: the content at its last sync and the changes since. Sizes and places
// in bytes.
class UnsyncedFile {
public:
    explicit UnsyncedFile(QByteArray synced = {})
        : m_synced(std::move(synced)) {}

    void write(qsizetype at, QByteArray bytes) { m_changes.push_back({at, std::move(bytes)}); }

    void truncate(qsizetype size) { m_changes.push_back({size, std::nullopt}); }

    void sync();

    // The synced content with any of the changes since, some of the writes torn between two sectors.
    QByteArray afterPowerCut(std::mt19937& random) const;

private:
    // A write, or without bytes a truncation.
    struct Change {
        qsizetype at;
        std::optional<QByteArray> bytes;
    };

    QByteArray m_synced;
    std::vector<Change> m_changes;
};
