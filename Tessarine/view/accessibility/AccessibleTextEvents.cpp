#include "Tessarine/view/accessibility/AccessibleTextEvents.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"

#include <QtWidgets/QWidget>

#include <algorithm>

namespace tessarine {

void AccessibleTextEvents::textWasReplaced(const TextRange& range, std::u16string_view oldText,
                                           std::u16string_view newText) {
    if (!m_tools.areThere()) return;
    const int place = toQt(range.location);
    if (oldText.empty())
        tell(QAccessibleTextInsertEvent(&m_widget, place, toQt(newText)));
    else if (newText.empty())
        tell(QAccessibleTextRemoveEvent(&m_widget, place, toQt(oldText)));
    else
        tell(QAccessibleTextUpdateEvent(&m_widget, place, toQt(oldText), toQt(newText)));
}

void AccessibleTextEvents::allTextWasReplaced() {
    if (m_tools.areThere()) tell(QAccessibleEvent(&m_widget, QAccessible::VisibleDataChanged));
}

void AccessibleTextEvents::selectionHasChanged() {
    const Selection selection{.anchor = m_textView.movement().anchor(), .head = m_textView.movement().head()};
    if (selection != m_told && m_tools.areThere()) tellSelection(selection);
    m_told = selection;
}

void AccessibleTextEvents::tellSelection(const Selection& selection) {
    const bool isEmpty = selection.anchor == selection.head;
    if (!isEmpty || m_told.anchor != m_told.head) {
        const auto [start, limit] = std::minmax(selection.anchor, selection.head);
        QAccessibleTextSelectionEvent event(&m_widget, toQt(start), toQt(limit));
        event.setCursorPosition(toQt(selection.head));
        tell(std::move(event));
    }
    if (selection.head != m_told.head) tell(QAccessibleTextCursorEvent(&m_widget, toQt(selection.head)));
}

} // namespace tessarine
