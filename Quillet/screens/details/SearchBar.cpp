#include "Quillet/screens/details/SearchBar.h"

#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/list/ListView.h"

#include <QtGui/QKeyEvent>

#include <algorithm>

namespace quillet {

SearchBar::SearchBar(QWidget* parent)
    : QLineEdit(parent) {
    setPlaceholderText(QStringLiteral("Search"));
    setAccessibleName(QStringLiteral("Search"));
    setClearButtonEnabled(true);
    setMinimumHeight(44);
    addAction(platform::symbolIcon(QStringLiteral("search"), platform::Asset::TextSecondary),
              QLineEdit::LeadingPosition);
}

QRegularExpression SearchBar::prefixPattern() const {
    return QRegularExpression(QStringLiteral("^") + QRegularExpression::escape(text().toLower()));
}

void SearchBar::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Down && m_list)
        moveBy(1);
    else if (event->key() == Qt::Key_Up && m_list)
        moveBy(-1);
    else if (!isReturn || !event->isAutoRepeat()) // held since the screen before
        QLineEdit::keyPressEvent(event);
}

void SearchBar::moveBy(int rows) {
    const auto& model = *m_list->model();
    const int row = std::clamp(m_list->currentIndex().row() + rows, 0, std::max(0, model.rowCount() - 1));
    m_list->setCurrentIndex(model.index(row, 0));
}

} // namespace quillet
