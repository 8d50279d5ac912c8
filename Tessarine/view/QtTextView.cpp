#include "Tessarine/view/QtTextView.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/theme/SemanticColors.h"
#include "Tessarine/view/QtMainExecutor.h"
#include "Tessarine/view/QtTextMeasurer.h"
#include "Tessarine/view/QtTextShaper.h"
#include "Tessarine/view/QtTimerScheduler.h"
#include "Tessarine/view/TextViewUpdates.h"
#include "Tessarine/view/TextViewport.h"
#include "Tessarine/view/accessibility/AccessibleTextEvents.h"
#include "Tessarine/view/accessibility/AccessibleTextView.h"
#include "Tessarine/view/interaction/CaretBlink.h"
#include "Tessarine/view/interaction/MouseSelection.h"
#include "Tessarine/view/interaction/TextClipboard.h"
#include "Tessarine/view/interaction/TextDrag.h"
#include "Tessarine/view/interaction/TextInputMethod.h"
#include "Tessarine/view/interaction/TextKeys.h"
#include "Tessarine/view/interaction/TextMenu.h"
#include "Tessarine/view/interaction/TouchSelection.h"
#include "Tessarine/view/interaction/ViewScrolling.h"
#include "Tessarine/view/interaction/WheelSteps.h"

#include <QtCore/QMimeData>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QDrag>
#include <QtGui/QDropEvent>
#include <QtGui/QFocusEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QScrollEvent>
#include <QtGui/QScrollPrepareEvent>
#include <QtGui/QTouchEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QMenu>

#include <utility>

namespace tessarine {

namespace {

constexpr float selectionAlpha = 0.25F;

// Points between text, gutter and edges.
constexpr double textInset = 6;
constexpr double gutterPadding = 6;

std::shared_ptr<TextView> makeTextView() {
    auto textView = TextView::create({.textShaper = std::make_shared<QtTextShaper>(),
                                      .textMeasurer = std::make_shared<QtTextMeasurer>(),
                                      .timerScheduler = std::make_shared<QtTimerScheduler>(),
                                      .mainExecutor = std::make_shared<QtMainExecutor>()});
    textView->scrollView()->setBackgroundColor(semanticColors::systemBackground);
    textView->setInsertionPointColor(semanticColors::label);
    textView->setSelectionHighlightColor(semanticColors::systemBlue.withAlpha(selectionAlpha));
    textView->setSelectionBarColor(semanticColors::systemBlue);
    textView->setTextContainerInset(
        {.top = textInset, .left = textInset, .bottom = textInset, .right = textInset});
    textView->setGutterLeadingPadding(gutterPadding);
    textView->setGutterTrailingPadding(gutterPadding);
    textView->setCaretShown(false);
    return textView;
}

UserInterfaceStyle styleOf(const QPalette& palette) {
    const bool isDark =
        palette.color(QPalette::Text).lightnessF() > palette.color(QPalette::Base).lightnessF();
    return isDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
}

// Until it has been dropped.
Qt::DropAction dragAway(QWidget& viewport, std::unique_ptr<QMimeData> data, Qt::DropActions actions) {
    auto* const drag = new QDrag(&viewport);
    drag->setMimeData(data.release());
    return drag->exec(actions, actions.testFlag(Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction);
}

} // namespace

// What the widget is made of.
class QtTextView::Parts final : public TextViewUpdates::Receiver {
public:
    explicit Parts(QtTextView& owner)
        : widget(owner) {
        textView->setHost(updates);
    }

    ~Parts() override { textView->setHost({}); }

    void layoutTextView() override { textView->layoutIfNeeded(); }

    void textViewHasChanged(const TextViewUpdates::Changes& changes) override;
    void editingHasChanged() override;

    void textWasReplaced(const TextRange& range, std::u16string_view oldText,
                         std::u16string_view newText) override {
        accessibleEvents.textWasReplaced(range, oldText, newText);
    }

    void allTextWasReplaced() override { accessibleEvents.allTextWasReplaced(); }

    void showCaret();
    void showMenu(const QPoint& placeOnScreen);

    QtTextView& widget;
    const std::shared_ptr<TextView> textView = makeTextView();
    const std::shared_ptr<TextViewUpdates> updates = std::make_shared<TextViewUpdates>(*this);
    TextViewport& viewport = *new TextViewport(textView); // the widget's
    std::optional<UserInterfaceStyle> style;

    CaretBlink blink{[this](bool isShown) { textView->setCaretShown(isShown); }};
    TextClipboard clipboard{*textView};
    ViewScrolling scrolling{*textView, widget};
    TextKeys keys{*textView, clipboard};
    TextDrag drag{*textView, clipboard, scrolling, viewport,
                  [this](std::unique_ptr<QMimeData> data, Qt::DropActions actions) {
                      return dragAway(viewport, std::move(data), actions);
                  }};
    MouseSelection mouse{*textView, clipboard, scrolling, viewport, [this] { drag.start(); }};
    TouchSelection touch{
        *textView,
        scrolling,
        viewport,
        {.beginEditing = [this] { widget.setFocus(); },
         .selected = [this] { clipboard.offerSelection(); },
         .showMenu = [this](const QPointF& place) { showMenu(viewport.mapToGlobal(place).toPoint()); }}};
    TextInputMethod inputMethod{*textView, viewport};
    AccessibleTextEvents accessibleEvents{*textView, widget};
    WheelNotches zoomNotches;
};

void QtTextView::Parts::textViewHasChanged(const TextViewUpdates::Changes& changes) {
    if (changes.scrolling) scrolling.showInBars();
    if (changes.caret) {
        showCaret();
        accessibleEvents.selectionHasChanged();
    }
    touch.handles().update();
}

void QtTextView::Parts::editingHasChanged() {
    if (textView->isEditing() && !widget.hasFocus()) widget.setFocus();
    showCaret();
}

void QtTextView::Parts::showCaret() {
    if (widget.hasFocus() && textView->isEditing())
        blink.start();
    else
        blink.stop();
    widget.updateMicroFocus();
}

void QtTextView::Parts::showMenu(const QPoint& placeOnScreen) {
    QMenu* const menu = widget.createContextMenu().release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(placeOnScreen);
}

QtTextView::QtTextView(QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_parts(std::make_unique<Parts>(*this)) {
    AccessibleTextView::install();
    setViewport(&m_parts->viewport);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::WheelFocus);
    setAcceptDrops(true);
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhMultiLine | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    followPalette();
}

QtTextView::~QtTextView() = default;

TextView& QtTextView::textView() const {
    return *m_parts->textView;
}

void QtTextView::setUserInterfaceStyle(std::optional<UserInterfaceStyle> style) {
    m_parts->style = style;
    followPalette();
}

void QtTextView::cut() {
    m_parts->clipboard.cut();
}

void QtTextView::copy() {
    m_parts->clipboard.copy();
}

void QtTextView::paste() {
    m_parts->clipboard.paste();
}

void QtTextView::selectAll() {
    textView().movement().selectAll();
    m_parts->clipboard.offerSelection();
}

// Keys that a window has shortcuts on come here first.
bool QtTextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && m_parts->keys.claims(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

// The viewport paints and sizes itself.
bool QtTextView::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint:
    case QEvent::Resize:
        return false;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        m_parts->touch.touch(*static_cast<QTouchEvent*>(event));
        return true;
    case QEvent::ScrollPrepare:
        m_parts->scrolling.prepare(*static_cast<QScrollPrepareEvent*>(event));
        return true;
    case QEvent::Scroll:
        m_parts->scrolling.follow(*static_cast<QScrollEvent*>(event));
        return true;
    default:
        return QAbstractScrollArea::viewportEvent(event);
    }
}

// A tab is text.
bool QtTextView::focusNextPrevChild(bool isNext) {
    return !textView().isEditable() && QAbstractScrollArea::focusNextPrevChild(isNext);
}

void QtTextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) followPalette();
}

void QtTextView::followPalette() {
    const UserInterfaceStyle style = m_parts->style.value_or(styleOf(palette()));
    m_parts->viewport.setUserInterfaceStyle(style);
    m_parts->touch.handles().setUserInterfaceStyle(style);
}

void QtTextView::scrollContentsBy(int dx, int dy) {
    m_parts->scrolling.followBars(dx, dy);
}

void QtTextView::keyPressEvent(QKeyEvent* event) {
    const auto selection = textView().selectedRange();
    event->setAccepted(m_parts->keys.press(*event));
    if (event->isAccepted()) m_parts->touch.handles().hide();
    if (textView().selectedRange() != selection) m_parts->clipboard.offerSelection();
}

void QtTextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    textView().beginEditing();
    if (textView().isSelectable() && !textView().selectedRange()) textView().setSelectedRange(TextRange{});
    m_parts->showCaret();
}

void QtTextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) textView().endEditing();
    m_parts->showCaret();
}

void QtTextView::mousePressEvent(QMouseEvent* event) {
    m_parts->inputMethod.finish();
    m_parts->touch.handles().hide();
    if (event->button() == Qt::LeftButton)
        m_parts->mouse.press(*event);
    else if (event->button() == Qt::MiddleButton)
        m_parts->mouse.pasteSelection(*event);
    else
        event->ignore();
}

void QtTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void QtTextView::mouseMoveEvent(QMouseEvent* event) {
    m_parts->mouse.move(*event);
}

void QtTextView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_parts->mouse.release();
}

void QtTextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        event->setAccepted(m_parts->scrolling.moveBy(scrolledBy(*event, textView().lineHeight())));
    } else if (const int notches = m_parts->zoomNotches.add(*event)) {
        Q_EMIT zoomRequested(notches);
    }
}

std::unique_ptr<QMenu> QtTextView::createContextMenu() {
    return textMenu(textView(), m_parts->clipboard, this);
}

void QtTextView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint caret = inputMethodQuery(Qt::ImCursorRectangle).toRect().bottomLeft();
    m_parts->showMenu(isByKey ? mapToGlobal(caret) : event->globalPos());
}

void QtTextView::dragEnterEvent(QDragEnterEvent* event) {
    m_parts->drag.move(*event);
}

void QtTextView::dragMoveEvent(QDragMoveEvent* event) {
    m_parts->drag.move(*event);
}

void QtTextView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    m_parts->drag.leave();
}

void QtTextView::dropEvent(QDropEvent* event) {
    m_parts->drag.drop(*event);
    if (event->isAccepted()) setFocus();
}

void QtTextView::inputMethodEvent(QInputMethodEvent* event) {
    m_parts->inputMethod.handle(*event);
    event->accept();
}

QVariant QtTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return inputMethodQuery(query, {});
}

QVariant QtTextView::inputMethodQuery(Qt::InputMethodQuery query, const QVariant& argument) const {
    const QVariant answer = m_parts->inputMethod.query(query, argument);
    return answer.isValid() ? answer : QAbstractScrollArea::inputMethodQuery(query);
}

} // namespace tessarine
