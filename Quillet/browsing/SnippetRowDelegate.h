#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace quillet {

// Paints the rows of the home list: group headers, and member and leaf rows on a rounded card.
class SnippetRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace quillet
