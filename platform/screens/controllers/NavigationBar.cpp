#include "platform/screens/controllers/NavigationBar.h"

#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controllers/BarButton.h"
#include "platform/screens/controllers/BarTitle.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace platform {

namespace {

// Points.
constexpr int sideInset = 6;
constexpr int largeTitleInset = 18;
constexpr int titleGap = 8;
constexpr int rowPadding = 4; // above and below the buttons

bool isLarge(const NavigationItem* item) {
    return item && item->titleSize() == NavigationItem::TitleSize::Large;
}

void replaceLater(std::vector<BarButton*>& buttons) {
    for (auto* button : buttons) {
        button->hide();
        button->deleteLater(); // it may be the one that is pressed
    }
    buttons.clear();
}

int widthOf(const std::vector<BarButton*>& buttons) {
    int width = 0;
    for (const auto* button : buttons)
        width += button->sizeHint().width();
    return width;
}

QString toolTipOf(const BarButtonItem& item) {
    const QString keys = item.shortcut().toString(QKeySequence::NativeText);
    const QString& name = item.look().accessibleName;
    return keys.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, keys);
}

// What of an item may change while its button stands.
void bringUpToDate(BarButton& button, QShortcut& shortcut, const BarButtonItem& item) {
    button.setEnabled(item.isEnabled() && !item.isBusy());
    button.setBusy(item.isBusy());
    button.setToolTip(toolTipOf(item));
    shortcut.setKey(item.shortcut());
}

void press(BarButton& button, const BarButtonItem& item) {
    if (!item.menu()) return item.trigger();
    popUpMenuBelow(*item.menu(), button);
}

} // namespace

NavigationBar::NavigationBar(QWidget* parent)
    : QWidget(parent)
    , m_title(new BarTitle(m_appearance.title, this)) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void NavigationBar::setAppearance(const Appearance& appearance) {
    m_appearance = appearance;
    m_title->setColor(appearance.title);
    m_isCurrent = false;
    refresh();
}

void NavigationBar::showItem(NavigationItem& item, const std::optional<QString>& backTitle) {
    if (m_item) m_item->disconnect(this);
    m_isCurrent = m_isCurrent && m_item == &item && m_backTitle == backTitle;
    m_item = &item;
    m_backTitle = backTitle;
    connect(m_item, &NavigationItem::changed, this, &NavigationBar::refresh);
    refresh();
}

QWidget* NavigationBar::buttonOf(const BarButtonItem& item) const {
    const auto found = m_buttons.find(&item);
    return found == m_buttons.end() ? nullptr : found->second;
}

void NavigationBar::refresh() {
    if (!m_item) return;
    const std::size_t count = m_item->leading().size() + m_item->trailing().size();
    if (!m_isCurrent || count != m_buttons.size()) rebuildButtons();
    m_title->setText(m_item->title());
    setTextStyle(*m_title, isLarge(m_item) ? TextStyle::LargeTitle : TextStyle::Headline);
    updateGeometry();
    layOut();
}

void NavigationBar::rebuildButtons() {
    m_isCurrent = true;
    replaceLater(m_leading);
    replaceLater(m_trailing);
    m_buttons.clear();
    if (m_backTitle) m_leading.push_back(makeBackButton());
    for (auto* item : m_item->leading())
        m_leading.push_back(makeButton(*item));
    for (auto* item : m_item->trailing())
        m_trailing.push_back(makeButton(*item));
    // Tab goes along the bar as it is read.
    std::vector<BarButton*> order = m_leading;
    order.insert(order.end(), m_trailing.rbegin(), m_trailing.rend());
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

BarButton* NavigationBar::makeBackButton() {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    auto* button = new BarButton(
        {.symbol = isMirrored ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left"),
         .text = *m_backTitle,
         .tint = m_appearance.tint},
        QStringLiteral("Back"), this);
    button->setAccessibleDescription(*m_backTitle);
    connect(button, &BarButton::clicked, this, &NavigationBar::backRequested);
    button->show();
    return button;
}

BarButton* NavigationBar::makeButton(BarButtonItem& item) {
    const auto& look = item.look();
    const bool isProminent = look.weight == BarButtonItem::Look::Weight::Prominent;
    auto* button = new BarButton({.symbol = look.symbol,
                                  .text = look.symbol.isEmpty() ? look.accessibleName : QString(),
                                  .style = isProminent ? TextStyle::Headline : TextStyle::Body,
                                  .tint = m_appearance.tint},
                                 look.accessibleName, this);
    auto* shortcut = new QShortcut(button);
    connect(shortcut, &QShortcut::activated, button, &BarButton::click);
    connect(button, &BarButton::clicked, &item, [button, &item] { press(*button, item); });
    connect(&item, &BarButtonItem::changed, button,
            [button, shortcut, &item] { bringUpToDate(*button, *shortcut, item); });
    bringUpToDate(*button, *shortcut, item);
    m_buttons[&item] = button;
    button->show();
    return button;
}

int NavigationBar::rowHeight() const {
    int height = std::max(44, QFontMetrics(platform::font(TextStyle::Headline)).height() + 16);
    if (isLarge(m_item) && !hasTitleRow())
        height = std::max(height, QFontMetrics(platform::font(TextStyle::LargeTitle)).height() + 8);
    return height + 2 * rowPadding;
}

bool NavigationBar::hasTitleRow() const {
    return isLarge(m_item) && !m_leading.empty();
}

QSize NavigationBar::sizeHint() const {
    int height = rowHeight();
    if (hasTitleRow())
        height += QFontMetrics(platform::font(TextStyle::LargeTitle)).height() + 2 * rowPadding;
    return {2 * sideInset + widthOf(m_leading) + widthOf(m_trailing), height};
}

// Gives back how much of the row they take.
int NavigationBar::placeSide(const std::vector<BarButton*>& buttons, Qt::Alignment side) {
    int at = sideInset;
    for (auto* button : buttons) {
        // The title of the screen below gives way to the rest.
        const bool isBack = m_backTitle && button == m_leading.front();
        const QSize size = button->sizeHint();
        const int width = isBack ? std::min(size.width(), std::max(44, this->width() / 3)) : size.width();
        const QRect place(side == Qt::AlignLeft ? at : this->width() - at - width,
                          (rowHeight() - size.height()) / 2, width, size.height());
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        at += width;
    }
    return at;
}

void NavigationBar::layOut() {
    const int leading = placeSide(m_leading, Qt::AlignLeft) + titleGap;
    const int trailing = placeSide(m_trailing, Qt::AlignRight) + titleGap;
    QRect title(leading, 0, width() - leading - trailing, rowHeight());
    m_title->setAlignment(Qt::AlignVCenter | (isLarge(m_item) ? Qt::AlignLeft : Qt::AlignHCenter));
    if (hasTitleRow()) {
        title = QRect(largeTitleInset, rowHeight(), width() - 2 * largeTitleInset, height() - rowHeight());
    } else if (isLarge(m_item)) {
        title.setLeft(largeTitleInset);
    } else {
        // In the middle of the bar, as long as it fits between the buttons there.
        const int side = std::max(leading, trailing);
        const int needed = m_title->fontMetrics().horizontalAdvance(m_title->text());
        if (needed <= width() - 2 * side) title = QRect(side, 0, width() - 2 * side, rowHeight());
    }
    m_title->setGeometry(QStyle::visualRect(layoutDirection(), rect(), title));
}

void NavigationBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) m_isCurrent = false; // the way back points elsewhere
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) refresh();
}

void NavigationBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), color(m_appearance.background));
    if (m_appearance.shadow == Appearance::Shadow::Line)
        painter.fillRect(QRect(0, height() - 1, width(), 1), color(Asset::Separator));
}

void NavigationBar::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
}

} // namespace platform
