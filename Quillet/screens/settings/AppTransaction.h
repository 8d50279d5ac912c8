#pragma once

#include <QtCore/QString>

#include <functional>
#include <optional>

namespace quillet {

// The receipt of the program's installation, which whoever distributes it may leave in the data directories
// of the machine as "quillet/receipt.json":
//
//   { "bundle": "quillet", "originalAppVersion": "2.0", "digest": "..." }
//
// It counts as verified where `digest` is the hexadecimal SHA-256 of the two other values with a line feed
// between them, and only root or the user could have written the file. That tells a damaged or foreign file;
// it is no proof of a purchase.
class AppTransaction {
public:
    // Reads it on another thread; `done` runs on the main thread, with nothing where there is none or it is
    // not verified.
    static void shared(std::function<void(const std::optional<AppTransaction>&)> done);

    const QString& originalAppVersion() const { return m_originalAppVersion; }

    static std::optional<AppTransaction> read(const QString& path);

private:
    explicit AppTransaction(QString originalAppVersion)
        : m_originalAppVersion(std::move(originalAppVersion)) {}

    QString m_originalAppVersion;
};

} // namespace quillet
