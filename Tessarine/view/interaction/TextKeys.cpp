#include "Tessarine/view/interaction/TextKeys.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/interaction/KeyBindings.h"

#include <QtGui/QKeyEvent>

namespace tessarine {

namespace {

// Control characters are keys, and with Ctrl alone so are others; with Ctrl and Alt some layouts type.
bool isTyped(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isShortcut = modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier;
    return !isShortcut && text.front().category() != QChar::Other_Control;
}

} // namespace

bool TextKeys::claims(const QKeyEvent& event) const {
    const KeyBinding* const binding = keyBindingFor(event);
    if (!binding) return canType(event);
    return m_textView.isEditable() || binding->kind != KeyBinding::Kind::edits;
}

bool TextKeys::press(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) return escape();
    if (!claims(event)) return false;
    if (m_textView.isEditable() && !m_textView.isEditing()) m_textView.beginEditing();
    if (const KeyBinding* const binding = keyBindingFor(event))
        binding->run(m_textView, m_clipboard);
    else
        m_textView.insertText(fromQt(event.text()));
    return true;
}

bool TextKeys::canType(const QKeyEvent& event) const {
    return m_textView.isEditable() && isTyped(event);
}

// Lets go of the selection, if there is any.
bool TextKeys::escape() {
    const auto& selection = m_textView.selectedRange();
    if (!selection || selection->length == 0) return false;
    m_textView.movement().moveTo(m_textView.movement().head(), SelectionMode::move);
    return true;
}

} // namespace tessarine
