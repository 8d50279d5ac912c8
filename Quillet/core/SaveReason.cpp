#include "Quillet/core/SaveReason.h"

#include <array>

namespace quillet {

QString textOf(SaveReason reason) {
    static const std::array texts{
        QStringLiteral("Added Item"),        QStringLiteral("Added Folder"),
        QStringLiteral("Added Tag"),         QStringLiteral("Added Snippet"),
        QStringLiteral("Added Segment."),    QStringLiteral("Edited Item"),
        QStringLiteral("Deleted Item"),      QStringLiteral("CloudKit Updates"),
        QStringLiteral("Tag screen closed"), QStringLiteral("Deleted Tag"),
        QStringLiteral("Deleted Folder"),    QStringLiteral("Deleted Snippet"),
        QStringLiteral("App Termination"),
    };
    return texts.at(static_cast<std::size_t>(reason));
}

} // namespace quillet
