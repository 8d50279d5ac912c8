#include "Quillet/screens/SnippetRootViewController.h"

#include "Quillet/browsing/FolderSelectionView.h"
#include "Quillet/browsing/HomeListViewController.h"
#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/screens/HealthBanner.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QBoxLayout>

namespace quillet {

using platform::Animated;
using Silent = SnippetViewController::Silent;

std::unique_ptr<SnippetRootViewController> SnippetRootViewController::create() {
    return std::make_unique<SnippetRootViewController>(
        std::make_unique<SnippetNavigationController>(std::make_unique<HomeListViewController>()),
        std::make_unique<SnippetNavigationController>(std::make_unique<SnippetViewController>()));
}

void SnippetRootViewController::viewDidLoad() {
    SplitViewController::viewDidLoad();
    preferredDisplayMode = DisplayMode::OneBesideSecondary;
    setWindowTitle(QStringLiteral("Quillet"));
    setMinimumSize(320, 400);
    static_cast<QBoxLayout*>(layout())->insertWidget(0, new HealthBanner(this));
    for (auto* column : children())
        if (const auto* navigation = qobject_cast<platform::NavigationController*>(column))
            for (auto* controller : navigation->viewControllers())
                adopt(*controller);
    // What is left on the way back is saved.
    connect(this, &SplitViewController::topColumnChanged, this, [this](Column column) {
        if (column == Column::Primary && m_snippetViewController)
            m_snippetViewController->saveContents(Silent::Yes);
    });
}

void SnippetRootViewController::adopt(platform::ViewController& controller) {
    if (auto* list = qobject_cast<HomeListViewController*>(&controller)) {
        m_homeListViewController = list;
        list->delegate = this;
        list->creationDelegate = this;
        list->onAdd = [this] { presentNewModally(); };
    } else if (auto* editor = qobject_cast<SnippetViewController*>(&controller)) {
        m_snippetViewController = editor;
        editor->delegate = this;
        connect(&editor->navigationItem(), &platform::NavigationItem::changed, this,
                [this] { nameWindow(); });
    }
}

void SnippetRootViewController::viewDidAppear(Animated animated) {
    showColumn(Column::Primary, Animated::No);
    SplitViewController::viewDidAppear(animated);
}

// A narrow window starts with the list.
bool SnippetRootViewController::collapsesSecondaryOntoPrimary() {
    return true;
}

void SnippetRootViewController::didSelect(const std::shared_ptr<Snippet>& snippet) {
    if (!m_snippetViewController) return;
    showColumn(Column::Secondary);
    m_snippetViewController->saveContents(Silent::Yes);
    m_snippetViewController->setSnippet(snippet);
}

void SnippetRootViewController::didDelete(const std::shared_ptr<Snippet>& snippet) {
    if (!m_snippetViewController || m_snippetViewController->snippet() != snippet) return;
    m_snippetViewController->setSnippet(nullptr);
}

void SnippetRootViewController::addToFolder(const std::shared_ptr<Snippet>& snippet) {
    SelectionNavigationController::presentSheet(*this,
                                                std::make_unique<FolderSelectionView>(snippet, tagColors));
}

void SnippetRootViewController::didCreate(const std::shared_ptr<Snippet>& snippet) {
    // What stood in the editor goes to its own snippet before the new one takes its place.
    didSelect(snippet);
    if (m_homeListViewController) m_homeListViewController->select(snippet);
    if (presentedViewController()) dismiss();
}

void SnippetRootViewController::didEdit(const std::shared_ptr<Snippet>& /*snippet*/) {}

void SnippetRootViewController::nameWindow() {
    const QString name = m_snippetViewController->title();
    setWindowTitle(name.isEmpty() ? QStringLiteral("Quillet") : name + QStringLiteral(" - Quillet"));
}

void SnippetRootViewController::save() {
    if (m_snippetViewController) m_snippetViewController->saveContents(Silent::No);
    // With nothing open the editor has saved nothing, and a folder may have been given.
    auto& stack = CoreDataStack::shared();
    if (stack.viewContext().hasChanges()) stack.saveContext();
}

void SnippetRootViewController::presentNewModally() {
    auto details = std::make_unique<SnippetDetailsViewController>();
    details->delegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(details)));
}

void SnippetRootViewController::closeEvent(QCloseEvent* event) {
    save();
    const auto& error = CoreDataStack::shared().health().value().saveError;
    event->setAccepted(!error || m_acceptsLoss);
    if (!event->isAccepted() && !m_question) askBeforeLoss(error->message);
}

void SnippetRootViewController::askBeforeLoss(const QString& reason) {
    auto question = std::make_unique<platform::AlertController>(
        QStringLiteral("Your last changes could not be saved. Quitting now loses them."), reason);
    question->addAction(
        {.title = QStringLiteral("Keep Open"), .style = platform::AlertAction::Style::Cancel, .handler = {}});
    question->addAction({.title = QStringLiteral("Quit Anyway"),
                         .style = platform::AlertAction::Style::Destructive,
                         .handler = [this] {
                             m_acceptsLoss = true;
                             close();
                         }});
    m_question = question.get();
    present(std::move(question));
}

} // namespace quillet
