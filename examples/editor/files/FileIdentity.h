#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <optional>

struct stat;

namespace tessarine::editor {

// Which file stands under a path, and in which state: another one, or one that was written since, is not
// equal.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;     // bytes
    std::int64_t modified = 0; // nanoseconds

    static FileIdentity of(const struct stat& status);

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// Of what a path leads to, links followed; nothing where there is no such file.
std::optional<FileIdentity> fileIdentity(const QString& path);

} // namespace tessarine::editor
