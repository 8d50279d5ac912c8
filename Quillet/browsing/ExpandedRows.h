#pragma once

#include "Quillet/browsing/ListItem.h"

namespace quillet {

// Which rows of the list are open. Lost when the process ends. Main thread.
struct ExpandedRows {
    bool showFolders = false;
    bool showTags = false;
    bool showLanguages = false;

    // Tags and folders are known by their ids, so that one which went and came back is open again.
    std::vector<std::shared_ptr<Folder>> expandedFolders;
    std::vector<std::shared_ptr<Tag>> expandedTags;
    std::vector<QString> expandedLanguages;

    // A row that can never be open is not.
    bool contains(const ListItemType& row) const;
    // Adds the row, or removes the first entry equal to it.
    void set(const ListItemType& row, bool isExpanded);
};

} // namespace quillet
