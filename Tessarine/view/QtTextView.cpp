#include "Tessarine/view/QtTextView.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/theme/SemanticColors.h"
#include "Tessarine/view/QtMainExecutor.h"
#include "Tessarine/view/QtTextMeasurer.h"
#include "Tessarine/view/QtTextShaper.h"
#include "Tessarine/view/QtTimerScheduler.h"
#include "Tessarine/view/TextViewUpdates.h"
#include "Tessarine/view/TextViewport.h"
#include "Tessarine/view/interaction/CaretBlink.h"
#include "Tessarine/view/interaction/MouseSelection.h"
#include "Tessarine/view/interaction/TextClipboard.h"
#include "Tessarine/view/interaction/TextKeys.h"
#include "Tessarine/view/interaction/ViewScrolling.h"
#include "Tessarine/view/interaction/WheelSteps.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>

#include <utility>

namespace tessarine {

namespace {

constexpr float selectionAlpha = 0.25F;

std::shared_ptr<TextView> makeTextView() {
    auto textView = TextView::create({.textShaper = std::make_shared<QtTextShaper>(),
                                      .textMeasurer = std::make_shared<QtTextMeasurer>(),
                                      .timerScheduler = std::make_shared<QtTimerScheduler>(),
                                      .mainExecutor = std::make_shared<QtMainExecutor>()});
    textView->scrollView()->setBackgroundColor(semanticColors::systemBackground);
    textView->setInsertionPointColor(semanticColors::label);
    textView->setSelectionHighlightColor(semanticColors::systemBlue.withAlpha(selectionAlpha));
    textView->setCaretShown(false);
    return textView;
}

UserInterfaceStyle styleOf(const QPalette& palette) {
    const bool isDark =
        palette.color(QPalette::Text).lightnessF() > palette.color(QPalette::Base).lightnessF();
    return isDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
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

    void textViewHasChanged(const TextViewUpdates::Changes& changes) override;
    void editingHasChanged() override;

    void textWasReplaced(const TextRange& /*range*/, std::u16string_view /*oldText*/,
                         std::u16string_view /*newText*/) override {}

    void allTextWasReplaced() override {}

    void showCaret();

    QtTextView& widget;
    const std::shared_ptr<TextView> textView = makeTextView();
    const std::shared_ptr<TextViewUpdates> updates = std::make_shared<TextViewUpdates>(*this);
    TextViewport& viewport = *new TextViewport(textView); // the widget's
    std::optional<UserInterfaceStyle> style;

    CaretBlink blink{[this](bool isShown) { textView->setCaretShown(isShown); }};
    TextClipboard clipboard{*textView};
    ViewScrolling scrolling{*textView, widget};
    TextKeys keys{*textView, clipboard};
    MouseSelection mouse{*textView, clipboard, scrolling, viewport, [] {}};
    WheelNotches zoomNotches;
};

void QtTextView::Parts::textViewHasChanged(const TextViewUpdates::Changes& changes) {
    textView->layoutIfNeeded();
    if (changes.scrolling) scrolling.showInBars();
    if (changes.caret) showCaret();
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

QtTextView::QtTextView(QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_parts(std::make_unique<Parts>(*this)) {
    setViewport(&m_parts->viewport);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::WheelFocus);
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
    if (event->type() == QEvent::Paint || event->type() == QEvent::Resize) return false;
    return QAbstractScrollArea::viewportEvent(event);
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
    m_parts->viewport.setUserInterfaceStyle(m_parts->style.value_or(styleOf(palette())));
}

void QtTextView::scrollContentsBy(int dx, int dy) {
    m_parts->scrolling.followBars(dx, dy);
}

void QtTextView::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(m_parts->keys.press(*event));
}

void QtTextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (!textView().isEditing()) textView().beginEditing();
    m_parts->showCaret();
}

void QtTextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) textView().endEditing();
    m_parts->showCaret();
}

void QtTextView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_parts->mouse.press(*event);
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

} // namespace tessarine
