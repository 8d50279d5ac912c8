#include "platform/screens/controllers/AlertController.h"

#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controllers/AlertButton.h"
#include "platform/screens/controllers/CardTransition.h"
#include "platform/screens/controllers/FocusScope.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Points.
constexpr int inset = 20;
constexpr int lineGap = 6;
constexpr int widestBeside = 150; // half a card

using Style = AlertAction::Style;

QLabel* centredLabel(const QString& text, TextStyle style, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setVisible(!text.isEmpty());
    setTextStyle(*label, style);
    return label;
}

} // namespace

AlertController::AlertController(const QString& title, const QString& message) {
    setTitle(title);
    setAccessibleDescription(message);
    modalPresentationStyle = ModalPresentationStyle::Custom;
    modalTransition = std::make_shared<CardTransition>(alertPlacement);
    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(inset, inset, inset, inset);
    texts->setSpacing(lineGap);
    texts->addWidget(centredLabel(title, TextStyle::Headline, this));
    texts->addWidget(centredLabel(message, TextStyle::Subheadline, this));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(texts);
}

void AlertController::addAction(AlertAction action) {
    m_actions.push_back(std::move(action));
}

const AlertAction* AlertController::preferredAction() const {
    const auto cancel = std::ranges::find(m_actions, Style::Cancel, &AlertAction::style);
    if (cancel != m_actions.end()) return &*cancel;
    const auto normal = std::ranges::find(m_actions, Style::Default, &AlertAction::style);
    return normal == m_actions.end() ? nullptr : &*normal;
}

bool AlertController::fitBesideEachOther() const {
    return m_buttons.size() == 2 && std::ranges::all_of(m_buttons, [](const AlertButton* button) {
               return button->sizeHint().width() <= widestBeside;
           });
}

void AlertController::viewDidLoad() {
    const AlertAction* preferred = preferredAction();
    for (const auto& action : m_actions) {
        const auto kind = action.style == Style::Destructive ? AlertButton::Kind::Destructive
                          : &action == preferred             ? AlertButton::Kind::Preferred
                                                             : AlertButton::Kind::Normal;
        auto* button = new AlertButton(action.title, kind, this);
        connect(button, &AlertButton::clicked, this, [this, &action] { choose(action); });
        if (&action == preferred) setFocusProxy(button);
        m_buttons.push_back(button);
    }
    layOutButtons();
}

// Beside each other the cancelling answer leads, above each other it is the last.
void AlertController::layOutButtons() {
    const bool isRow = fitBesideEachOther();
    const auto cancel = std::ranges::find(m_actions, Style::Cancel, &AlertAction::style);
    if (cancel != m_actions.end()) {
        const auto button = m_buttons.begin() + (cancel - m_actions.begin());
        if (isRow)
            std::rotate(m_buttons.begin(), button, button + 1);
        else
            std::rotate(button, button + 1, m_buttons.end());
    }
    auto* answers = new QBoxLayout(isRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    answers->setSpacing(0);
    for (auto* button : m_buttons)
        answers->addWidget(button, 1);
    if (isRow) m_buttons.back()->setHasNeighbour(true);
    static_cast<QBoxLayout*>(layout())->addLayout(answers);
    for (std::size_t i = 1; i < m_buttons.size(); ++i)
        setTabOrder(m_buttons[i - 1], m_buttons[i]);
}

void AlertController::choose(const AlertAction& action) {
    if (std::exchange(m_isAnswered, true)) return;
    dismiss(Animated::Yes, action.handler);
}

void AlertController::cancelPresentation() {
    const auto cancel = std::ranges::find(m_actions, Style::Cancel, &AlertAction::style);
    if (cancel != m_actions.end())
        choose(*cancel);
    else if (m_actions.size() == 1)
        choose(m_actions.front());
}

void AlertController::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        return stepFocus(*this, FocusStep::Previous);
    case Qt::Key_Down:
    case Qt::Key_Right:
        return stepFocus(*this, FocusStep::Next);
    default:
        ViewController::keyPressEvent(event);
    }
}

void showAlert(ViewController& over, const QString& title, const QString& message, const QString& action) {
    auto alert = std::make_unique<AlertController>(title, message);
    alert->addAction({.title = action, .style = AlertAction::Style::Default, .handler = {}});
    over.present(std::move(alert));
}

} // namespace platform
