#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/cloud/AccountCheck.h"
#include "Quillet/cloud/CloudKitService.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controllers/Alert.h"

#include <QtCore/QPointer>
#include <QtGui/QShortcut>
#include <QtGui/QShowEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

HomeListViewController::HomeListViewController(QWidget* parent)
    : QWidget(parent)
    , m_snippetList(new SnippetList(m_model, this)) {
    auto* title = new QLabel(QStringLiteral("Quillet"), this);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    font.setBold(true);
    title->setFont(font);

    auto* add = new QToolButton(this);
    add->setIcon(platform::symbolIcon(QStringLiteral("plus"), platform::Asset::Accent));
    add->setIconSize({22, 22});
    add->setMinimumSize(44, 44);
    add->setAutoRaise(true);
    add->setAccessibleName(QStringLiteral("Add"));
    add->setToolTip(QStringLiteral("New snippet (Ctrl+N)"));
    const auto runAdd = [this] {
        if (onAdd) onAdd();
    };
    connect(add, &QToolButton::clicked, this, runAdd);
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this, runAdd);

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(16, 12, 10, 4);
    bar->addWidget(title);
    bar->addStretch();
    bar->addWidget(add);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(bar);
    column->addWidget(m_snippetList);

    m_snippetList->onSelectSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didSelect(snippet);
    };
    m_snippetList->onDeleteSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didDelete(snippet);
    };
}

void HomeListViewController::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return; // the window came back, and the list had been there all along
    checkAccount(CloudKitService::shared().container(),
                 [list = QPointer(this)](const AccountWarning& warning) {
                     if (list) platform::showAlert(list, warning.title, warning.message, warning.action);
                 });
}

} // namespace quillet
