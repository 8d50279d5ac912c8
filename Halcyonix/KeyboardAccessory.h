#pragma once

#include "Halcyonix/InputToolbar.h"

#include <QtCore/QPointer>

namespace halcyonix {

// Gives a field the toolbar that closes the keyboard. It belongs to writing by touch: it is there while the
// field has the focus and either got it by a touch or an on-screen keyboard is up, and stands right above
// that keyboard, or else at the foot of the window. Whoever has a mouse and a keyboard of their own never
// sees it: they have nothing to put away, and it would cover what they write. Main thread.
class KeyboardAccessory : public QObject {
    Q_OBJECT

public:
    // Owned by the field.
    KeyboardAccessory(QWidget& field, platform::Asset tint);
    ~KeyboardAccessory() override;

    // Made at the first call.
    InputToolbar& toolbar();

    // Shown on the toolbar; empty for none.
    const QString& placeholderText() const { return m_placeholderText; }

    void setPlaceholderText(const QString& text);

Q_SIGNALS:
    // The button was pressed; the focus is given up after that.
    void donePressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isWanted() const;
    void update();
    void watch(QWidget& window);
    void place();
    void done();

    QWidget& m_field;
    platform::Asset m_tint;
    QString m_placeholderText;
    QPointer<InputToolbar> m_toolbar; // in the field's window
    QPointer<QWidget> m_window;       // that is watched for its size
};

} // namespace halcyonix
