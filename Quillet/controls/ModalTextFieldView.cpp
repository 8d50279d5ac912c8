#include "Quillet/controls/ModalTextFieldView.h"

#include "Halcyonix/SquishyButtonStyle.h"
#include "Quillet/controls/QuilletTextField.h"
#include "platform/foundation/FatalError.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/ButtonRole.h"

#include <QtCore/QPointer>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

// Points.
constexpr int margin = 20;
constexpr int spacing = 20;

platform::ViewController& controllerAround(const QWidget& view) {
    for (QWidget* around = view.parentWidget(); around; around = around->parentWidget())
        if (auto* controller = qobject_cast<platform::ViewController*>(around)) return *controller;
    platform::fatalError("A text modal lies in no view controller");
}

} // namespace

ModalTextFieldView::ModalTextFieldView(Texts texts, std::function<void(const QString& text)> onEnter,
                                       QWidget* parent)
    : QWidget(parent)
    , m_texts(std::move(texts))
    , m_onEnter(std::move(onEnter))
    , m_field(new QuilletTextField(m_texts.prompt, m_texts.placeholder, this)) {
    auto* button = new QPushButton(tr("Done"), this);
    platform::setButtonRole(*button, platform::ButtonRole::Prominent);
    new platform::PressSqueeze(*button, halcyonix::SquishyButtonStyle());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    column->addWidget(m_field);
    column->addWidget(button);
    column->addStretch(1);
    setFocusProxy(m_field);
    connect(m_field, &QuilletTextField::returnPressed, this, &ModalTextFieldView::confirm);
    connect(button, &QAbstractButton::clicked, this, &ModalTextFieldView::confirm);
}

QString ModalTextFieldView::text() const {
    return m_field->text();
}

void ModalTextFieldView::confirm() {
    if (text().isEmpty()) return raiseAlert();
    const QPointer self(this);
    const auto onEnter = m_onEnter; // outlives this, which it may delete
    if (onEnter) onEnter(text());
    if (self) controllerAround(*this).dismiss();
}

void ModalTextFieldView::raiseAlert() {
    if (m_showErr) return;
    m_showErr = true;
    auto alert = std::make_unique<platform::AlertController>(tr("Oops!"), m_texts.errorOnEmpty);
    alert->addAction({.title = tr("Dismiss"),
                      .style = platform::AlertAction::Style::Default,
                      .handler = [self = QPointer(this)] {
                          if (self) self->m_showErr = false;
                      }});
    controllerAround(*this).present(std::move(alert));
}

} // namespace quillet
