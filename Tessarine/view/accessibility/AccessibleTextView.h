#pragma once

#include "Tessarine/base/TextRange.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>

#include <cstdint>

namespace tessarine {

class QtTextView;
class TextView;

// A text view for assistive tools. Offsets are code units of the document, brought into the text; -1 is its
// end, -2 the caret. Only what is asked for is taken out of the text.
class AccessibleTextView final : public QAccessibleWidget,
                                 public QAccessibleTextInterface,
                                 public QAccessibleEditableTextInterface {
public:
    // Has the toolkit make these for text views from now on.
    static void install();

    explicit AccessibleTextView(QtTextView& widget);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    int childCount() const override { return 0; }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }

    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                             int* endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                            int* endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                         int* endOffset) const override;
    int characterCount() const override;

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;

    // Has no attributes: colours are the theme's and mean little in words.
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    using PieceFinder = TextRange (*)(TextView&, std::int64_t, QAccessible::TextBoundaryType);

    QtTextView& widget() const;
    TextView& view() const;
    std::int64_t location(int offset) const;
    TextRange range(int startOffset, int endOffset) const;
    QString textOf(const TextRange& range) const;
    QString piece(PieceFinder find, int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                  int* endOffset) const;
};

} // namespace tessarine
