#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"

#include <QtWidgets/QAbstractScrollArea>

#include <memory>
#include <optional>

class QMenu;

namespace tessarine {

class TextView;

// A text view as a widget, with what a desktop expects of one: scroll bars, keys, pointer, fingers,
// clipboards, dragging, input methods.
//
// What is edited, how it looks and who is told of it is textView()'s to say. Editing begins with the
// keyboard's focus and ends with it. Keys that mean nothing here go on to the parent. Main thread.
class QtTextView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit QtTextView(QWidget* parent = nullptr);
    ~QtTextView() override;

    // Its host is the widget.
    TextView& textView() const;

    // Light or dark for good, for themes that are only one of them; without one as the palette is.
    void setUserInterfaceStyle(std::optional<UserInterfaceStyle> style);

    void cut();
    void copy();
    void paste();
    void selectAll();

    // That of a right click, for what can be done now.
    std::unique_ptr<QMenu> createContextMenu();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    Q_INVOKABLE QVariant inputMethodQuery(Qt::InputMethodQuery query, const QVariant& argument) const;

Q_SIGNALS:
    // By turns of the wheel with Ctrl: notches, positive for larger.
    void zoomRequested(int steps);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool focusNextPrevChild(bool isNext) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    class Parts;

    void followPalette();

    const std::unique_ptr<Parts> m_parts;
};

} // namespace tessarine
