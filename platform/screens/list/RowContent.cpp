#include "platform/screens/list/RowContent.h"

namespace platform {

RowContent contentOf(const QModelIndex& index) {
    RowContent content;
    content.title = index.data().toString();
    content.symbol = index.data(ListView::SymbolRole).toString();
    if (const QVariant tint = index.data(ListView::TintRole); tint.isValid())
        content.tint = static_cast<Asset>(tint.toInt());
    content.detail = index.data(ListView::DetailRole).toString();
    content.accessory = static_cast<ListView::Accessory>(index.data(ListView::AccessoryRole).toInt());
    content.isGroup = isGroup(index);
    content.buttonSymbol = index.data(ListView::ButtonSymbolRole).toString();
    if (!content.buttonSymbol.isEmpty()) content.buttonName = index.data(ListView::ButtonNameRole).toString();
    return content;
}

bool isSectionHeader(const QModelIndex& index) {
    if (index.parent().isValid()) return false;
    const auto style = static_cast<ListView::RowStyle>(index.data(ListView::StyleRole).toInt());
    return style == ListView::RowStyle::SectionHeader;
}

bool isGroup(const QModelIndex& index) {
    if (isSectionHeader(index)) return false;
    const QVariant says = index.data(ListView::GroupRole);
    return says.isValid() ? says.toBool() : index.isValid() && index.model()->hasChildren(index);
}

bool isChoosable(const QModelIndex& index) {
    return (index.flags() & Qt::ItemIsEnabled) && !isSectionHeader(index);
}

} // namespace platform
