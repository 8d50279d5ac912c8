#include "Halcyonix/KeyboardAccessory.h"

#include "platform/screens/appearance/InputKind.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLabel>

#include <algorithm>

namespace halcyonix {

namespace {

constexpr int gap = 8; // points, below the toolbar

// In coordinates of `window`; empty without an on-screen keyboard.
QRect keyboardIn(const QWidget& window) {
    const auto* method = QGuiApplication::inputMethod();
    if (!method->isVisible()) return {};
    // The rectangle is in coordinates of the native window.
    return method->keyboardRectangle().toRect().intersected(window.rect());
}

} // namespace

KeyboardAccessory::KeyboardAccessory(QWidget& field, platform::Asset tint)
    : QObject(&field)
    , m_field(field)
    , m_tint(tint) {
    field.installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&field)) area->viewport()->installEventFilter(this);
    const auto* method = QGuiApplication::inputMethod();
    platform::currentInput(); // watches from now on
    connect(method, &QInputMethod::visibleChanged, this, &KeyboardAccessory::update);
    connect(method, &QInputMethod::keyboardRectangleChanged, this, &KeyboardAccessory::update);
}

KeyboardAccessory::~KeyboardAccessory() {
    delete m_toolbar;
}

InputToolbar& KeyboardAccessory::toolbar() {
    if (!m_toolbar) {
        m_toolbar = new InputToolbar(m_tint, m_field.window());
        m_toolbar->hide();
        if (!m_placeholderText.isEmpty()) m_toolbar->placeHolderButton().setText(m_placeholderText);
        connect(&m_toolbar->doneButton(), &QAbstractButton::clicked, this, &KeyboardAccessory::done);
    }
    return *m_toolbar;
}

void KeyboardAccessory::setPlaceholderText(const QString& text) {
    m_placeholderText = text;
    if (m_toolbar) m_toolbar->placeHolderButton().setText(text);
}

bool KeyboardAccessory::eventFilter(QObject* watched, QEvent* event) {
    static const QEvent::Type types[] = {QEvent::Resize,           QEvent::FocusIn,  QEvent::FocusOut,
                                         QEvent::MouseButtonPress, QEvent::KeyPress, QEvent::Hide};
    const bool concerns = watched != m_window || watched == &m_field || event->type() == QEvent::Resize;
    if (concerns && std::ranges::find(types, event->type()) != std::end(types)) update();
    return false;
}

bool KeyboardAccessory::isWanted() const {
    return m_field.hasFocus() && (platform::currentInput() == platform::InputKind::Touch ||
                                  QGuiApplication::inputMethod()->isVisible());
}

void KeyboardAccessory::update() {
    if (isWanted())
        place();
    else if (m_toolbar)
        m_toolbar->hide();
}

void KeyboardAccessory::watch(QWidget& window) {
    if (m_window == &window) return;
    if (m_window) m_window->removeEventFilter(this);
    m_window = &window;
    window.installEventFilter(this);
}

void KeyboardAccessory::place() {
    QWidget& window = *m_field.window();
    watch(window);
    if (toolbar().parentWidget() != &window) toolbar().setParent(&window);
    const QRect keyboard = keyboardIn(window);
    const int foot = keyboard.isEmpty() ? window.height() : keyboard.top();
    const int width = readableWidth(window.width());
    QRect place(0, 0, width, toolbar().height());
    place.moveBottomLeft({(window.width() - width) / 2, foot - gap - 1});
    toolbar().setGeometry(place);
    toolbar().show();
    toolbar().raise();
}

void KeyboardAccessory::done() {
    Q_EMIT donePressed();
    m_field.clearFocus();
    QGuiApplication::inputMethod()->hide();
}

} // namespace halcyonix
