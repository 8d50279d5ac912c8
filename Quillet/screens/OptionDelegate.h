#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace quillet {

// Paints one option of a list, with a check mark behind the selected one.
class OptionDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    OptionDelegate(QString selectedOption, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QString m_selectedOption;
};

} // namespace quillet
