#include "Quillet/browsing/SnippetRowDelegate.h"

#include "Quillet/browsing/SnippetTree.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QTreeView>

namespace quillet {

namespace {

using platform::Asset;
using Level = SnippetTree::Level;

// Points.
constexpr int headerHeight = 52;
constexpr int rowHeight = 44;
constexpr int sideMargin = 14;
constexpr int cardRadius = 10;
constexpr int symbolSize = 18;
constexpr int levelIndent = 24;
constexpr int chevronSize = 13;

Level levelOf(const QModelIndex& index) {
    return static_cast<Level>(index.data(SnippetTree::LevelRole).toInt());
}

// Whether the card that a member or leaf row stands on begins or ends with this row.
struct CardEdges {
    bool top = false;
    bool bottom = false;
};

CardEdges cardEdges(const QTreeView& view, const QModelIndex& index) {
    const QModelIndex above = view.indexAbove(index);
    const QModelIndex below = view.indexBelow(index);
    return {!above.isValid() || levelOf(above) == Level::Group,
            !below.isValid() || levelOf(below) == Level::Group};
}

void drawCard(QPainter& painter, const QRect& rect, CardEdges edges, const QColor& fill) {
    // A row whose neighbour continues the card is drawn past its edge, where the clip cuts the round corners
    // off.
    QRectF card(rect);
    if (!edges.top) card.setTop(card.top() - 2 * cardRadius);
    if (!edges.bottom) card.setBottom(card.bottom() + 2 * cardRadius);
    painter.save();
    painter.setClipRect(rect);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(card, cardRadius, cardRadius);
    painter.restore();
    if (edges.bottom) return;
    painter.fillRect(QRect(rect.left() + levelIndent + sideMargin, rect.bottom(),
                           rect.width() - levelIndent - sideMargin, 1),
                     platform::color(Asset::Separator));
}

} // namespace

void SnippetRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const auto& view = *static_cast<const QTreeView*>(option.widget);
    const Level level = levelOf(index);
    painter->setRenderHint(QPainter::Antialiasing);

    const QRect row(sideMargin, option.rect.top(), view.viewport()->width() - 2 * sideMargin,
                    option.rect.height());
    const bool focused = (option.state & QStyle::State_HasFocus) && view.hasFocus();
    if (level != Level::Group) {
        const bool marked = option.state & (QStyle::State_Selected | QStyle::State_MouseOver);
        drawCard(*painter, row, cardEdges(view, index),
                 platform::color(marked ? Asset::Selection : Asset::Card));
    }
    if (focused) {
        painter->setPen(QPen(platform::color(Asset::Accent), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(row.adjusted(2, 2, -2, -2), cardRadius - 2, cardRadius - 2);
    }

    int left = row.left() + 12 + (level == Level::Leaf ? levelIndent : 0);
    const auto tint = static_cast<Asset>(index.data(SnippetTree::TintRole).toInt());
    if (const QString symbol = index.data(SnippetTree::SymbolRole).toString(); !symbol.isEmpty()) {
        const QRectF place(left, row.center().y() - symbolSize / 2.0 + 1, symbolSize, symbolSize);
        platform::drawSymbol(*painter, place, symbol, platform::color(tint));
        left += symbolSize + 10;
    }

    int right = row.right() - 12;
    if (index.model()->hasChildren(index)) {
        const QRectF place(right - chevronSize, row.center().y() - chevronSize / 2.0 + 1, chevronSize,
                           chevronSize);
        painter->save();
        painter->translate(place.center());
        if (view.isExpanded(index)) painter->rotate(90);
        painter->translate(-place.center());
        platform::drawSymbol(*painter, place, QStringLiteral("chevron.right"),
                             platform::color(Asset::TextSecondary));
        painter->restore();
        right -= chevronSize + 8;
        if (level == Level::Member) {
            painter->setPen(platform::color(Asset::TextSecondary));
            painter->setFont(option.font);
            const QString count = QString::number(index.model()->rowCount(index));
            painter->drawText(QRect(left, row.top(), right - left, row.height()),
                              Qt::AlignVCenter | Qt::AlignRight, count);
            right -= option.fontMetrics.horizontalAdvance(count) + 8;
        }
    }

    QFont font = option.font;
    if (level == Level::Group) {
        font.setPointSizeF(font.pointSizeF() * 1.25);
        font.setBold(true);
    }
    painter->setFont(font);
    painter->setPen(platform::color(Asset::Text));
    const QString title =
        QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight, right - left);
    painter->drawText(QRect(left, row.top(), right - left, row.height()), Qt::AlignVCenter | Qt::AlignLeft,
                      title);
}

QSize SnippetRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int least = levelOf(index) == Level::Group ? headerHeight : rowHeight;
    return {0, std::max(least, option.fontMetrics.height() + 16)};
}

} // namespace quillet
