#pragma once

#include <QtCore/QString>

#include <functional>
#include <optional>

namespace quillet {

// How the user came to have the program, from the receipt that its installation left behind: the file
// `quillet/receipt.json` below XDG_DATA_HOME or one of XDG_DATA_DIRS, in this order, such as
//
//     {"bundle": "quillet", "originalAppVersion": "3.0.2", "sha256": "9f86d0..."}
//
// A receipt is verified if it is a regular file of at most 64 KB that belongs to root or to the user and that
// nobody else may write, if its bundle is this program's, and if sha256, in hexadecimal, is the digest of its
// other members as one JSON object in UTF-8 with the keys in order and no space.
//
// That finds damage, files of other programs and what other users of the machine slipped in. It proves
// nothing against the user, who can write a receipt as well as we can, nor against who may write the folder
// it lies in. So it is good for a line of text and for no decision.
struct AppTransaction {
    QString originalAppVersion;

    using Answer = std::function<void(const std::optional<AppTransaction>&)>;

    // Looks for a verified receipt off the main thread, then calls `answer` on the main thread, with none
    // where there is none. Any thread.
    static void shared(Answer answer);

    // None if the receipt cannot be read or is not verified. Reads a file; any thread.
    static std::optional<AppTransaction> verified(const QString& path);
};

} // namespace quillet
