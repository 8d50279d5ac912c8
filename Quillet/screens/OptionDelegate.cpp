#include "Quillet/screens/OptionDelegate.h"

#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

using platform::Asset;

// Points.
constexpr int rowHeight = 44;
constexpr int inset = 16;
constexpr int checkSize = 16;

} // namespace

OptionDelegate::OptionDelegate(QString selectedOption, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_selectedOption(std::move(selectedOption)) {}

void OptionDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const QRect row = option.rect;
    if (option.state & (QStyle::State_Selected | QStyle::State_MouseOver))
        painter->fillRect(row, platform::color(Asset::Selection));
    painter->fillRect(QRect(row.left() + inset, row.bottom(), row.width() - inset, 1),
                      platform::color(Asset::Separator));
    painter->setPen(platform::color(Asset::Text));
    painter->setFont(option.font);
    painter->drawText(row.adjusted(inset, 0, -inset, 0), Qt::AlignVCenter | Qt::AlignLeft,
                      index.data().toString());
    if (index.data().toString() != m_selectedOption) return;
    const QRectF place(row.right() - inset - checkSize, row.center().y() - checkSize / 2.0, checkSize,
                       checkSize);
    platform::drawSymbol(*painter, place, QStringLiteral("checkmark.alt"), platform::color(Asset::Accent));
}

QSize OptionDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    return {0, std::max(rowHeight, option.fontMetrics.height() + 16)};
}

} // namespace quillet
