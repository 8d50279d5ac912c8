#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/cloud/AccountCheck.h"
#include "Quillet/cloud/CloudKitService.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtCore/QPointer>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

HomeListViewController::HomeListViewController(QWidget* parent)
    : ViewController(parent)
    , m_snippetList(new SnippetList(m_model, this)) {
    setTitle(QStringLiteral("Quillet"));
    navigationItem().setTitleSize(platform::NavigationItem::TitleSize::Large);
    auto add = std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{QStringLiteral("plus"), QStringLiteral("Add")}, [this] {
            if (onAdd) onAdd();
        });
    add->setShortcut(QKeySequence::New);
    navigationItem().addTrailing(std::move(add));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_snippetList);

    // The list lies on the background, not on a field of its own.
    QPalette palette = m_snippetList->palette();
    palette.setBrush(QPalette::Base, Qt::NoBrush);
    m_snippetList->setPalette(palette);

    m_snippetList->onSelectSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didSelect(snippet);
    };
    m_snippetList->onDeleteSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didDelete(snippet);
    };
}

void HomeListViewController::viewWillAppear(platform::Animated animated) {
    ViewController::viewWillAppear(animated);
    checkAccount(CloudKitService::shared().container(),
                 [list = QPointer(this)](const AccountWarning& warning) {
                     if (list) platform::showAlert(*list, warning.title, warning.message, warning.action);
                 });
}

} // namespace quillet
