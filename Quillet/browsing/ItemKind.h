#pragma once

#include "Quillet/core/SaveReason.h"

#include <QtCore/QString>

namespace quillet {

// What the screens of tags and those of folders say differently.
struct ItemKind {
    QString singular; // "Tag"
    QString plural;   // "Tags"
    QString symbol;
    SaveReason added;   // why a new one is saved
    SaveReason deleted; // why the list saves behind a deletion

    QString newTitle() const { return QStringLiteral("New ") + singular; }

    QString existingTitle() const { return QStringLiteral("Existing ") + plural; }

    QString detailsTitle() const { return singular + QStringLiteral(" Details"); }

    QString deleteTitle() const { return QStringLiteral("Delete ") + singular; }

    QString deleteQuestion(const QString& title) const {
        return QStringLiteral("Are you sure you want to delete ") + title +
               QStringLiteral("? This will leave your snippets, but delete the containing ") +
               singular.toLower() + QStringLiteral(".");
    }
};

inline const ItemKind tagKind{QStringLiteral("Tag"), QStringLiteral("Tags"), QStringLiteral("tag.fill"),
                              SaveReason::AddedTag, SaveReason::DeletedTag};
inline const ItemKind folderKind{QStringLiteral("Folder"), QStringLiteral("Folders"),
                                 QStringLiteral("folder.fill"), SaveReason::AddedFolder,
                                 SaveReason::DeletedFolder};

} // namespace quillet
