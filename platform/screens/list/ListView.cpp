#include "platform/screens/list/ListView.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/list/AccessibleList.h"
#include "platform/screens/list/DisclosureAnimation.h"
#include "platform/screens/list/ListKeys.h"
#include "platform/screens/list/ListMemory.h"
#include "platform/screens/list/ListPointer.h"
#include "platform/screens/list/RowPainter.h"
#include "platform/screens/menus/ContextMenuInteraction.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

namespace platform {

ListView::ListView(QWidget* parent)
    : QAbstractItemView(parent)
    , m_rows(std::make_unique<VisibleRows>())
    , m_disclosure(
          std::make_unique<DisclosureAnimation>([this](const QModelIndex& index, SlideWay way, double part,
                                                       int pixels) { slideStep(index, way, part, pixels); }))
    , m_memory(std::make_unique<ListMemory>())
    , m_keys(std::make_unique<ListKeys>(*this))
    , m_pointer(std::make_unique<ListPointer>(*this)) {
    AccessibleList::install();
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    auto& menus = ContextMenuInteraction::attach(*viewport(), [this](QPoint at) -> std::optional<Menu> {
        const QModelIndex index = indexAt(at);
        if (!contextMenu || !index.isValid() || m_pointer->stopsScrolling()) return std::nullopt;
        return contextMenu(index);
    });
    menus.keyboardPoint = [this] {
        scrollTo(currentIndex());
        return visualRect(currentIndex()).center();
    };
}

ListView::~ListView() = default;

void ListView::setOpenRows(OpenRows openRows) {
    m_openRows = std::move(openRows);
    forgetLayout();
}

bool ListView::isOpen(const QModelIndex& index) const {
    if (isSectionHeader(index)) return true;
    return index.isValid() && m_openRows.contains && m_openRows.contains(index);
}

void ListView::setOpen(const QModelIndex& index, bool isOpen) {
    if (!m_openRows.set || !isGroup(index) || this->isOpen(index) == isOpen) return;
    const QPersistentModelIndex row = index;
    rows(); // as it is before the change
    m_openRows.set(row, isOpen);
    if (row.isValid()) showOpenness(row);
}

// The layout follows what the owner says now.
void ListView::showOpenness(const QModelIndex& index) {
    const auto isOpenNow = [this](const QModelIndex& row) { return isOpen(row); };
    const auto way = isOpen(index) ? SlideWay::Opening : SlideWay::Closing;
    if (way == SlideWay::Opening)
        rows().open(index, isOpenNow);
    else
        for (QModelIndex up = currentIndex().parent(); up.isValid(); up = up.parent())
            if (up == index) moveTo(index); // the current row is about to go
    const auto row = rows().rowOf(index);
    if (!row) return;
    // What leaves the view needs no time.
    const int below = viewport()->height() - (rectOf(*row).top() + row->height);
    const bool isSeen = isVisible() && below < viewport()->height() + row->height;
    m_disclosure->slide(index, way, isSeen ? std::min(below, rows().heightBelow(index)) : 0);
    if (auto* accessible = AccessibleList::ifActive(*this)) accessible->tellOpenness(index);
}

void ListView::slideStep(const QModelIndex& index, SlideWay way, double part, int pixels) {
    if (way == SlideWay::Closing && part <= 0)
        rows().close(index);
    else
        rows().slide(index, way, part, pixels);
    updateGeometries();
    viewport()->update();
}

VisibleRows& ListView::rows() const {
    if (!m_isLaidOut) {
        const_cast<ListView*>(this)->m_isLaidOut = true;
        m_rows->rebuild(model(), listMetrics(), [this](const QModelIndex& row) { return isOpen(row); });
    }
    return *m_rows;
}

// Nothing slides on over rows that are no longer what they were.
void ListView::forgetLayout() {
    m_isLaidOut = false;
    m_disclosure->forgetAll();
    scheduleDelayedItemsLayout();
}

void ListView::doItemsLayout() {
    QAbstractItemView::doItemsLayout(); // comes to updateGeometries
    viewport()->update();
}

void ListView::setModel(QAbstractItemModel* newModel) {
    if (newModel == model()) return;
    if (model()) model()->disconnect(this);
    forgetLayout();
    QAbstractItemView::setModel(newModel);
    if (newModel) connectModel();
}

void ListView::connectModel() {
    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        const int top = verticalOffset();
        const auto selected = selectionModel()->selectedIndexes();
        m_memory->remember(
            {currentIndex(), selected.value(0), rows().rowsBetween(top, top + viewport()->height()), top});
    });
    // After the selection model has forgotten all: it was told after the view, and this after both.
    connect(model(), &QAbstractItemModel::modelReset, this, &ListView::restore);
    for (const auto changed : {&QAbstractItemModel::rowsRemoved, &QAbstractItemModel::rowsInserted})
        connect(model(), changed, this, [this](const QModelIndex& parent) {
            forgetLayout();
            if (auto* accessible = AccessibleList::ifActive(*this)) accessible->tellRowsBelow(parent);
        });
    connect(model(), &QAbstractItemModel::rowsMoved, this, &ListView::forgetLayout);
    connect(model(), &QAbstractItemModel::layoutChanged, this, &ListView::forgetLayout);
}

void ListView::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    QAbstractItemView::dataChanged(first, last, roles);
    if (auto* accessible = AccessibleList::ifActive(*this)) accessible->tellChecks();
}

void ListView::reset() {
    forgetLayout();
    QAbstractItemView::reset();
}

void ListView::restore() {
    updateGeometries();
    verticalScrollBar()->setValue(m_memory->viewTop(*model(), rows()));
    if (const auto current = m_memory->current(*model()); current.isValid()) {
        const QSignalBlocker quiet(selectionModel()); // it was current before
        moveTo(current);
    }
    if (const auto selected = m_memory->selected(*model()); selected.isValid())
        selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
    m_pointer->modelWasReset();
    viewport()->update();
    if (auto* accessible = AccessibleList::ifActive(*this)) accessible->forgetGone();
    if (m_memory->wasCurrent(currentIndex())) return;
    m_keys->leaveButton();
    tellFocus();
}

void ListView::updateGeometries() {
    auto* bar = verticalScrollBar();
    bar->setPageStep(viewport()->height());
    bar->setSingleStep(listMetrics().row);
    bar->setRange(0, std::max(0, rows().height() - viewport()->height()));
    QAbstractItemView::updateGeometries();
}

int ListView::horizontalOffset() const {
    return 0;
}

int ListView::verticalOffset() const {
    return verticalScrollBar()->value();
}

void ListView::scrollContentsBy(int /*dx*/, int dy) {
    viewport()->scroll(0, dy);
    m_pointer->rowsScrolled();
}

QRect ListView::rectOf(const VisibleRow& row) const {
    return {0, row.top - verticalOffset(), viewport()->width(), row.height};
}

RowParts ListView::partsOf(const VisibleRow& row) const {
    return platform::partsOf(contentOf(row.index), row, rectOf(row), layoutDirection());
}

QRect ListView::visualRect(const QModelIndex& index) const {
    const auto row = rows().rowOf(index);
    return row ? rectOf(*row) : QRect();
}

QModelIndex ListView::indexAt(const QPoint& point) const {
    return viewport()->rect().contains(point) ? rows().indexAt(point.y() + verticalOffset()) : QModelIndex();
}

void ListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const auto row = rows().rowOf(index);
    if (!row) return;
    auto* bar = verticalScrollBar();
    const int lowest = row->top + row->height - viewport()->height();
    if (hint == PositionAtTop)
        bar->setValue(row->top);
    else if (hint == PositionAtBottom)
        bar->setValue(lowest);
    else if (hint == PositionAtCenter)
        bar->setValue((row->top + lowest) / 2);
    else
        bar->setValue(std::min(row->top, std::max(bar->value(), lowest)));
}

bool ListView::isIndexHidden(const QModelIndex& index) const {
    return rows().ordinalOf(index) < 0;
}

void ListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    selectionModel()->select(indexAt(rect.center()), command);
}

QRegion ListView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const auto& index : selection.indexes())
        region += visualRect(index);
    return region;
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    updateRow(previous);
    m_keys->leaveButton();
    tellFocus();
}

void ListView::tellFocus() {
    if (auto* accessible = AccessibleList::ifActive(*this)) accessible->tellFocus();
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);
    auto* accessible = AccessibleList::ifActive(*this);
    if (!accessible) return;
    for (const auto& index : deselected.indexes())
        accessible->tell(QAccessible::SelectionRemove, index);
    for (const auto& index : selected.indexes())
        accessible->tell(QAccessible::SelectionAdd, index);
}

void ListView::updateRow(const QModelIndex& index) {
    if (index.isValid()) viewport()->update(visualRect(index));
}

void ListView::moveTo(const QModelIndex& index) {
    if (index.isValid()) selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void ListView::activate(const QModelIndex& index) {
    if (!(index.flags() & Qt::ItemIsEnabled)) return;
    const QPersistentModelIndex row = index;
    moveTo(row);
    if (isGroup(row)) {
        setOpen(row, !isOpen(row));
        return;
    }
    selectionModel()->select(row, QItemSelectionModel::ClearAndSelect);
    Q_EMIT rowActivated(row);
}

void ListView::pressButton(const QModelIndex& index) {
    Q_EMIT buttonPressed(index);
}

QModelIndex ListView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
    return m_keys->target(action);
}

void ListView::keyboardSearch(const QString& text) {
    m_keys->search(text);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(m_keys->press(*event));
}

void ListView::focusInEvent(QFocusEvent* event) {
    QAbstractItemView::focusInEvent(event);
    m_keys->leaveButton();
    updateRow(currentIndex());
    tellFocus();
}

bool ListView::focusNextPrevChild(bool next) {
    return m_keys->tab(next) || QAbstractItemView::focusNextPrevChild(next);
}

bool ListView::viewportEvent(QEvent* event) {
    return m_pointer->handle(*event) || QAbstractItemView::viewportEvent(event);
}

void ListView::mousePressEvent(QMouseEvent* event) {
    m_pointer->press(*event);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    m_pointer->press(*event);
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer->move(*event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    m_pointer->release(*event);
}

void ListView::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) forgetLayout();
    if (event->type() == QEvent::LayoutDirectionChange) viewport()->update();
}

RowLook ListView::lookOf(const VisibleRow& row) const {
    RowLook look = m_pointer->lookOf(row.index);
    const bool isCurrent = row.index == currentIndex();
    look.isSelected = selectionModel()->isSelected(row.index);
    look.isFocused = isCurrent && showsFocusRing(*this) && !m_keys->isOnButton();
    look.isButtonFocused = isCurrent && showsFocusRing(*this) && m_keys->isOnButton();
    look.openness = row.openness;
    look.direction = layoutDirection();
    return look;
}

void ListView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), color(Asset::BackgroundGrey));
    if (!model()) return;
    const int offset = verticalOffset();
    const int top = offset + event->rect().top();
    const int bottom = offset + event->rect().bottom() + 1;
    for (const auto& card : rows().cardsBetween(top, bottom))
        paintCard(
            painter,
            {cardMargin, card.top - offset, viewport()->width() - 2 * cardMargin, card.bottom - card.top},
            cardColor);
    for (const auto& row : rows().rowsBetween(top, bottom))
        paintRow(painter, row);
}

void ListView::paintRow(QPainter& painter, const VisibleRow& row) const {
    const QRect rect = rectOf(row);
    const auto content = contentOf(row.index);
    const RowParts parts = platform::partsOf(content, row, rect, layoutDirection());
    const auto& swipe = m_pointer->swipe();
    const int shown = std::min(row.height, row.clipBottom - row.top);
    painter.save();
    if (shown < row.height) painter.setClipRect(rect.x(), rect.y(), rect.width(), shown);
    if (swipe.isUncovered() && swipe.index() == row.index) {
        swipe.paint(painter, parts.card, layoutDirection());
        painter.setClipRect(parts.card, Qt::IntersectClip);
        painter.translate(isRightToLeft() ? swipe.offset() : -swipe.offset(), 0);
    }
    platform::paintRow(painter, content, parts, row.style, lookOf(row));
    painter.restore();
}

} // namespace platform
