#pragma once

#include <QtWidgets/QWidget>

#include <functional>

namespace quillet {

class QuilletTextField;

// Asks for one text. Return or the button confirms: an empty text raises an alert, any other is handed to
// `onEnter`, and the presentation around this is dismissed after that. Lies in a view controller; main
// thread.
class ModalTextFieldView : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString title;  // of the screen
        QString prompt; // of the field
        QString placeholder;
        QString errorOnEmpty;
    };

    ModalTextFieldView(Texts texts, std::function<void(const QString& text)> onEnter,
                       QWidget* parent = nullptr);

    QString text() const;

    // Whether the alert is up.
    bool showErr() const { return m_showErr; }

private:
    void confirm();
    void raiseAlert();

    Texts m_texts;
    std::function<void(const QString& text)> m_onEnter;
    QuilletTextField* m_field;
    bool m_showErr = false;
};

} // namespace quillet
