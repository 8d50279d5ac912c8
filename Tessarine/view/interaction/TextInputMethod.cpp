#include "Tessarine/view/interaction/TextInputMethod.h"

#include "Tessarine/view/QtFonts.h"
#include "Tessarine/view/interaction/SurroundingText.h"
#include "Tessarine/view/interaction/ViewPlaces.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <limits>

namespace tessarine {

namespace {

const QInputMethodEvent::Attribute* attributeOf(const QInputMethodEvent& event,
                                                QInputMethodEvent::AttributeType type) {
    const auto found = std::ranges::find(event.attributes(), type, &QInputMethodEvent::Attribute::type);
    return found == event.attributes().end() ? nullptr : &*found;
}

bool replacesText(const QInputMethodEvent& event) {
    return event.replacementLength() > 0 || event.replacementStart() != 0;
}

// Without one, all that there is.
int countIn(const QVariant& argument) {
    return argument.isValid() ? argument.toInt() : std::numeric_limits<int>::max();
}

} // namespace

void TextInputMethod::handle(const QInputMethodEvent& event) {
    if (!m_textView.isEditable() || !m_textView.selectedRange()) return;
    if (!event.commitString().isEmpty() || replacesText(event)) commit(event);
    select(event);
    compose(event);
}

// A replacement counts from where the composed text or the selection was.
void TextInputMethod::commit(const QInputMethodEvent& event) {
    if (replacesText(event)) {
        removeComposed();
        const std::int64_t start =
            std::max<std::int64_t>(0, m_textView.movement().head() + event.replacementStart());
        m_textView.setSelectedRange(TextRange{.location = start, .length = event.replacementLength()});
    }
    m_textView.insertText(fromQt(event.commitString()));
}

void TextInputMethod::select(const QInputMethodEvent& event) {
    const auto* const selection = attributeOf(event, QInputMethodEvent::Selection);
    if (!selection || m_textView.markedRange()) return;
    m_textView.setSelectedRange(TextRange{.location = SurroundingText(m_textView).start + selection->start,
                                          .length = selection->length});
}

void TextInputMethod::compose(const QInputMethodEvent& event) {
    const QString& text = event.preeditString();
    if (text.isEmpty()) {
        if (m_textView.markedRange()) removeComposed();
        return;
    }
    const auto* const cursor = attributeOf(event, QInputMethodEvent::Cursor);
    const std::int64_t caret = cursor ? std::clamp<std::int64_t>(cursor->start, 0, text.size()) : text.size();
    m_textView.setMarkedText(fromQt(text), {.location = caret});
}

void TextInputMethod::removeComposed() {
    m_textView.setMarkedText({}, {});
    m_textView.unmarkText();
}

void TextInputMethod::finish() {
    if (!m_textView.markedRange()) return;
    QGuiApplication::inputMethod()->commit();
    m_textView.unmarkText();
}

QVariant TextInputMethod::query(Qt::InputMethodQuery query, const QVariant& argument) const {
    switch (query) {
    case Qt::ImEnabled:
        return m_textView.isEditable();
    case Qt::ImReadOnly:
        return !m_textView.isEditable();
    case Qt::ImFont:
        return qtFont(m_textView.theme()->font());
    case Qt::ImCursorRectangle:
        return shown(m_textView.caretRect().value_or(Rect()));
    case Qt::ImAnchorRectangle:
        return shown(m_textView.caretRect(m_textView.movement().anchor()));
    case Qt::ImInputItemClipRectangle:
        return QRectF(m_viewport.geometry());
    default:
        return queryText(query, argument);
    }
}

QVariant TextInputMethod::queryText(Qt::InputMethodQuery query, const QVariant& argument) const {
    const SurroundingText surrounding(m_textView);
    const auto caret = static_cast<int>(surrounding.before.size());
    switch (query) {
    case Qt::ImSurroundingText:
        return QString(surrounding.before + surrounding.after);
    case Qt::ImTextBeforeCursor:
        return surrounding.before.right(countIn(argument));
    case Qt::ImTextAfterCursor:
        return surrounding.after.left(countIn(argument));
    case Qt::ImCursorPosition:
        return caret;
    case Qt::ImAnchorPosition:
        return surrounding.anchor;
    case Qt::ImAbsolutePosition:
        return toQt(surrounding.caret);
    case Qt::ImCurrentSelection: {
        const QString text = surrounding.before + surrounding.after;
        return text.mid(std::min(caret, surrounding.anchor), std::abs(caret - surrounding.anchor));
    }
    default:
        return {};
    }
}

QRectF TextInputMethod::shown(const Rect& contentRect) const {
    return inViewport(m_textView, contentRect).translated(m_viewport.pos());
}

} // namespace tessarine
