#pragma once

#include <QtCore/QString>

#include <expected>

namespace platform {

// Why the store did not do what it was asked. Whatever failed has left the store as it was.
struct StoreError {
    enum class Kind {
        CannotOpen,   // no such directory, no permission
        NotADatabase, // the file is something else, or another program's database
        TooNew,       // written by a newer version of the program
        Incompatible, // its model is not this program's
        Busy,         // another process holds the lock
        Full,         // no space
        ReadOnly,
        Replaced, // the file is no longer the one that was opened
        InputOutput,
        Corrupt,
        Constraint, // a required value is absent
        Missing,    // the object is no longer in the store
        NotLoaded,  // the context has no store
        Other,
    };
    Kind kind = Kind::Other;
    QString message;

    bool operator==(const StoreError&) const = default;
};

template <typename T>
using StoreResult = std::expected<T, StoreError>;

} // namespace platform

// Hands the error of `expression` to the caller, for results whose value is not needed.
#define STORE_TRY(expression)                                                                                \
    do {                                                                                                     \
        if (auto tried = (expression); !tried) return std::unexpected(std::move(tried.error()));             \
    } while (false)
