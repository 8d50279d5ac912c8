#pragma once

#include "Tessarine/base/TextRange.h"

#include <QtGui/QAccessible>

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

class QWidget;

namespace tessarine {

class TextView;

// The desktop's, or those of a test.
struct AssistiveTools {
    std::function<bool()> areThere = QAccessible::isActive;
    std::function<void(QAccessibleEvent*)> tell = QAccessible::updateAccessibility;
};

// Tells assistive tools, if there are any, what has changed in a text view: the text of an edit, never that
// of the document.
class AccessibleTextEvents {
public:
    // Borrows both.
    AccessibleTextEvents(TextView& textView, QWidget& widget, AssistiveTools tools = {})
        : m_textView(textView)
        , m_widget(widget)
        , m_tools(std::move(tools)) {}

    void textWasReplaced(const TextRange& range, std::u16string_view oldText, std::u16string_view newText);
    void allTextWasReplaced();

    // Of caret and selection, if they are others than told last.
    void selectionHasChanged();

private:
    struct Selection {
        std::int64_t anchor = 0;
        std::int64_t head = 0;

        friend bool operator==(const Selection&, const Selection&) = default;
    };

    void tell(QAccessibleEvent&& event) const { m_tools.tell(&event); }

    void tellSelection(const Selection& selection);

    TextView& m_textView;
    QWidget& m_widget;
    const AssistiveTools m_tools;
    Selection m_told;
};

} // namespace tessarine
