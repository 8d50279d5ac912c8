#include "Quillet/screens/SnippetRootViewController.h"

#include "Quillet/browsing/HomeListViewController.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/screens/HealthBanner.h"
#include "Quillet/screens/SnippetDetailsViewController.h"
#include "Quillet/screens/SnippetViewController.h"
#include "platform/screens/appearance/DesktopSettings.h"
#include "platform/screens/controllers/Sheet.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

// Points.
constexpr int twoColumnsFrom = 720;
constexpr int listWidth = 330;
constexpr QSize detailsSheetSize(460, 480);

} // namespace

SnippetRootViewController::SnippetRootViewController(QWidget* parent)
    : QWidget(parent)
    , m_homeListViewController(new HomeListViewController(this))
    , m_snippetViewController(new SnippetViewController(this)) {
    setWindowTitle(QStringLiteral("Quillet"));
    setMinimumSize(320, 400);

    auto* columns = new QHBoxLayout;
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(m_homeListViewController);
    columns->addWidget(m_snippetViewController, 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(new HealthBanner(this));
    rows->addLayout(columns, 1);

    m_homeListViewController->delegate = this;
    m_homeListViewController->onAdd = [this] { presentNewModally(); };
    m_snippetViewController->delegate = this;
    m_snippetViewController->onBack = [this] {
        m_snippetViewController->saveContents(SnippetViewController::Silent::Yes);
        showColumn(Column::Primary);
    };
    layOutColumns();
}

void SnippetRootViewController::didSelect(const std::shared_ptr<Snippet>& snippet) {
    showColumn(Column::Secondary);
    m_snippetViewController->saveContents(SnippetViewController::Silent::Yes);
    m_snippetViewController->setSnippet(snippet);
    setWindowTitle(snippet->title() + QStringLiteral(" - Quillet"));
}

void SnippetRootViewController::didDelete(const std::shared_ptr<Snippet>& snippet) {
    if (m_snippetViewController->snippet() != snippet) return;
    m_snippetViewController->setSnippet(nullptr);
    setWindowTitle(QStringLiteral("Quillet"));
}

void SnippetRootViewController::didCreate(const std::shared_ptr<Snippet>& snippet) {
    // What stood in the editor goes to its own snippet before the new one takes its place.
    didSelect(snippet);
    m_homeListViewController->select(snippet);
}

void SnippetRootViewController::didEdit(const std::shared_ptr<Snippet>& snippet) {
    setWindowTitle(snippet->title() + QStringLiteral(" - Quillet"));
}

void SnippetRootViewController::save() {
    m_snippetViewController->saveContents(SnippetViewController::Silent::No);
}

void SnippetRootViewController::presentNewModally() {
    auto* details = new SnippetDetailsViewController;
    details->delegate = this;
    auto* sheet = platform::Sheet::present(details, this, detailsSheetSize);
    details->onClose = [sheet] { sheet->dismiss(); };
}

void SnippetRootViewController::showColumn(Column column) {
    m_column = column;
    layOutColumns();
}

void SnippetRootViewController::layOutColumns() {
    const bool isWide = width() >= twoColumnsFrom;
    m_homeListViewController->setVisible(isWide || m_column == Column::Primary);
    m_homeListViewController->setMaximumWidth(isWide ? listWidth : QWIDGETSIZE_MAX);
    m_homeListViewController->setMinimumWidth(isWide ? listWidth : 0);
    m_snippetViewController->setVisible(isWide || m_column == Column::Secondary);
    m_snippetViewController->showsBackButton(!isWide);
}

void SnippetRootViewController::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutColumns();
}

void SnippetRootViewController::closeEvent(QCloseEvent* event) {
    save();
    const auto& error = CoreDataStack::shared().health().value().saveError;
    event->setAccepted(!error || confirmsLoss(error->message));
}

bool SnippetRootViewController::confirmsLoss(const QString& reason) {
    QMessageBox question(this);
    question.setWindowTitle(QStringLiteral("Quillet"));
    question.setText(QStringLiteral("Your last changes could not be saved. Quitting now loses them."));
    question.setInformativeText(reason);
    auto* stay = question.addButton(QStringLiteral("Keep Open"), QMessageBox::RejectRole);
    question.addButton(QStringLiteral("Quit Anyway"), QMessageBox::DestructiveRole);
    question.setDefaultButton(stay);
    question.setEscapeButton(stay);
    question.exec();
    return question.clickedButton() != stay;
}

} // namespace quillet
