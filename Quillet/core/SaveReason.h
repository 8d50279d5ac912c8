#pragma once

#include <QtCore/QString>

namespace quillet {

// Why the context is saved; exists to be logged.
enum class SaveReason {
    AddedItem,
    AddedFolder,
    AddedTag,
    AddedSnippet,
    AddedSegment,
    EditedItem,
    DeletedItem,
    CloudKitUpdates,
    TagScreenClosed,
    DeletedTag,
    DeletedFolder,
    DeletedSnippet,
    AppTermination,
};

QString textOf(SaveReason reason);

} // namespace quillet
