#include "platform/screens/controllers/NavigationItem.h"

namespace platform {

BarButtonItem::BarButtonItem(Look look, std::function<void()> action, QObject* parent)
    : QObject(parent)
    , m_look(std::move(look))
    , m_action(std::move(action)) {}

void BarButtonItem::trigger() const {
    if (m_isEnabled && !m_isBusy && m_action) m_action();
}

void BarButtonItem::setMenu(std::optional<Menu> menu) {
    m_menu = std::move(menu);
    Q_EMIT changed();
}

void BarButtonItem::setEnabled(bool isEnabled) {
    if (isEnabled == m_isEnabled) return;
    m_isEnabled = isEnabled;
    Q_EMIT changed();
}

void BarButtonItem::setBusy(bool isBusy) {
    if (isBusy == m_isBusy) return;
    m_isBusy = isBusy;
    Q_EMIT changed();
}

void BarButtonItem::setShortcut(const QKeySequence& shortcut) {
    m_shortcut = shortcut;
    Q_EMIT changed();
}

void NavigationItem::setTitle(const QString& title) {
    if (title == m_title) return;
    m_title = title;
    Q_EMIT changed();
}

void NavigationItem::setTitleSize(TitleSize size) {
    m_titleSize = size;
    Q_EMIT changed();
}

BarButtonItem& NavigationItem::addLeading(std::unique_ptr<BarButtonItem> item) {
    item->setParent(this);
    m_leading.push_back(item.release());
    Q_EMIT changed();
    return *m_leading.back();
}

BarButtonItem& NavigationItem::addTrailing(std::unique_ptr<BarButtonItem> item) {
    item->setParent(this);
    m_trailing.push_back(item.release());
    Q_EMIT changed();
    return *m_trailing.back();
}

} // namespace platform
