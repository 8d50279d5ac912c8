#include "platform/store/tests/UnsyncedFile.h"

#include <algorithm>

namespace {

constexpr qsizetype sectorSize = 512; // a disk writes a sector whole or not at all

void put(QByteArray& content, qsizetype at, const QByteArray& bytes, char gap) {
    if (content.size() < at) content.resize(at, gap);
    content.replace(at, bytes.size(), bytes);
}

} // namespace

void UnsyncedFile::sync() {
    for (const auto& [at, bytes] : m_changes) {
        if (bytes)
            put(m_synced, at, *bytes, '\0');
        else
            m_synced.resize(at);
    }
    m_changes.clear();
}

QByteArray UnsyncedFile::afterPowerCut(std::mt19937& random) const {
    QByteArray content = m_synced;
    const auto garbage = static_cast<char>(random()); // where a lost write leaves a gap
    const auto survivingQuarters = random() % 5;      // of the changes: from none to all
    for (const auto& [at, bytes] : m_changes) {
        if (random() % 4 >= survivingQuarters) continue;
        if (!bytes) {
            content.resize(std::min(content.size(), at));
            continue;
        }
        const auto end = at + bytes->size();
        const auto firstBoundary = (at / sectorSize + 1) * sectorSize;
        const auto boundaries = (end - firstBoundary + sectorSize - 1) / sectorSize;
        const bool isTorn = boundaries > 0 && random() % 8 == 0;
        const auto tornAt =
            isTorn ? firstBoundary + static_cast<qsizetype>(random() % boundaries) * sectorSize : end;
        put(content, at, bytes->left(tornAt - at), garbage);
    }
    return content;
}
