#pragma once

#include "platform/screens/list/ListView.h"

namespace platform {

// What a model says of a row, read for one painting.
struct RowContent {
    QString title;
    QString symbol;
    Asset tint = Asset::Accent;
    QString detail;
    ListView::Accessory accessory = ListView::Accessory::None;
    bool isGroup = false;
    QString buttonSymbol;
    QString buttonName;
};

RowContent contentOf(const QModelIndex& index);

bool isSectionHeader(const QModelIndex& index);

// Whether the row opens and closes.
bool isGroup(const QModelIndex& index);

// Whether the user can go to the row and press it; section headers are to be read alone.
bool isChoosable(const QModelIndex& index);

} // namespace platform
