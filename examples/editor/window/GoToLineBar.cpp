#include "examples/editor/window/GoToLineBar.h"

#include "examples/editor/window/TextPlace.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace tessarine::editor {

GoToLineBar::GoToLineBar(QWidget* parent)
    : QFrame(parent)
    , m_place(new QLineEdit) {
    m_place->setObjectName(QStringLiteral("place"));
    m_place->setPlaceholderText(QStringLiteral("12:5"));
    m_place->setMaximumWidth(160);
    auto* label = new QLabel(tr("Go to &line:"));
    label->setBuddy(m_place);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 6);
    row->addWidget(label);
    row->addWidget(m_place);
    row->addStretch(1);
    hide();
}

void GoToLineBar::open(const TextLocation& present) {
    m_place->setText(placeText(present));
    show();
    m_place->setFocus(Qt::ShortcutFocusReason);
    m_place->selectAll();
}

void GoToLineBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closed();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        choose();
    else
        QFrame::keyPressEvent(event);
}

// What is no place stays for the user to mend.
void GoToLineBar::choose() {
    if (const auto place = textPlace(m_place->text()))
        Q_EMIT placeChosen(*place);
    else
        m_place->selectAll();
}

} // namespace tessarine::editor
