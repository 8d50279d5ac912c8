#include "examples/editor/window/NoticeBar.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace tessarine::editor {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 6, 8, 6);
    m_text->setWordWrap(true);
    layout->addWidget(m_text, 1);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    hide();
}

void NoticeBar::show(const QString& text, std::vector<Choice> choices) {
    m_text->setText(text);
    if (m_buttons) m_buttons->deleteLater(); // one of them may be calling
    m_buttons = new QWidget;
    auto* row = new QHBoxLayout(m_buttons);
    row->setContentsMargins(0, 0, 0, 0);
    for (Choice& choice : choices) {
        auto* button = new QPushButton(choice.label);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, action = std::move(choice.action)] {
            hide();
            action();
        });
    }
    layout()->addWidget(m_buttons);
    QFrame::show();
}

} // namespace tessarine::editor
