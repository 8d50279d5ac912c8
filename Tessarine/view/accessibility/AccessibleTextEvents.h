#pragma once

#include "Tessarine/base/TextRange.h"

#include <cstdint>
#include <string_view>

class QWidget;

namespace tessarine {

class TextView;

// Tells assistive tools, if there are any, what has changed in a text view: the text of an edit, never that
// of the document.
class AccessibleTextEvents {
public:
    // Borrows both.
    AccessibleTextEvents(TextView& textView, QWidget& widget)
        : m_textView(textView)
        , m_widget(widget) {}

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

    void tellSelection(const Selection& selection);

    TextView& m_textView;
    QWidget& m_widget;
    Selection m_told;
};

} // namespace tessarine
