#include "Tessarine/view/interaction/TextDrag.h"

#include "Tessarine/view/interaction/TextClipboard.h"
#include "Tessarine/view/interaction/ViewPlaces.h"
#include "Tessarine/view/interaction/ViewScrolling.h"

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QDragMoveEvent>
#include <QtWidgets/QWidget>

#include <utility>

namespace tessarine {

namespace {

constexpr int scrollMargin = 16; // points inside of the edges, as a drag ends at them

} // namespace

TextDrag::TextDrag(TextView& textView, TextClipboard& clipboard, ViewScrolling& scrolling, QWidget& viewport,
                   Execute execute)
    : m_textView(textView)
    , m_clipboard(clipboard)
    , m_scrolling(scrolling)
    , m_viewport(viewport)
    , m_execute(std::move(execute))
    , m_caret(textView)
    , m_edgeScroll([this](const QPointF& step) { m_scrolling.moveBy(step); }) {}

// What has been edited meanwhile, by a drop within the view too, is not removed.
void TextDrag::start() {
    auto data = m_clipboard.selectedText();
    if (!data) return;
    const StringView& stringView = *m_textView.document().stringView;
    m_dragged = rangeInText(*m_textView.selectedRange(), stringView);
    const TextSnapshot text = stringView.snapshot();
    const QPointer<QWidget> view(&m_viewport);
    const Qt::DropAction action = m_execute(
        std::move(data), m_textView.isEditable() ? Qt::CopyAction | Qt::MoveAction : Qt::CopyAction);
    if (!view) return;
    if (action == Qt::MoveAction && m_textView.document().stringView->snapshot() == text) removeDragged();
    m_dragged.reset();
}

void TextDrag::removeDragged() {
    if (m_dragged) m_textView.replace(*m_dragged, {});
}

void TextDrag::move(QDragMoveEvent& event) {
    if (!accept(event)) return;
    m_caret.show(locationAt(m_textView, event.position()));
    m_edgeScroll.dragTo(event.position(), m_viewport.rect().marginsRemoved(
                                              {scrollMargin, scrollMargin, scrollMargin, scrollMargin}));
}

void TextDrag::leave() {
    m_caret.hide();
    m_edgeScroll.stop();
}

void TextDrag::drop(QDropEvent& event) {
    leave();
    if (!accept(event)) return;
    const std::int64_t location = locationAt(m_textView, event.position());
    if (m_dragged)
        dropOwn(event, location);
    else
        insert(*event.mimeData(), location);
}

bool TextDrag::accept(QDropEvent& event) const {
    const QMimeData& data = *event.mimeData();
    const bool isAccepted = m_textView.isEditable() && data.hasText() && !data.hasUrls();
    if (isAccepted)
        event.acceptProposedAction();
    else
        event.ignore();
    return isAccepted;
}

void TextDrag::dropOwn(QDropEvent& event, std::int64_t location) {
    if (event.dropAction() == Qt::MoveAction) {
        m_textView.moveText(*m_dragged, location);
        m_dragged.reset();
    } else {
        insert(*event.mimeData(), location);
    }
}

void TextDrag::insert(const QMimeData& data, std::int64_t location) {
    m_textView.movement().moveTo(location, SelectionMode::move);
    m_clipboard.paste(data);
    m_textView.movement().select(location, m_textView.movement().head());
}

} // namespace tessarine
