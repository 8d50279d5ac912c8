#include "Quillet/screens/SnippetRootViewController.h"

#include "Quillet/browsing/FolderSelectionView.h"
#include "Quillet/browsing/HomeListViewController.h"
#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/KeyStore.h"
#include "Quillet/screens/HealthBanner.h"
#include "Quillet/screens/WhatsNew.h"
#include "Quillet/screens/WindowMenu.h"
#include "Quillet/screens/details/Languages.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "Quillet/screens/settings/SettingsHostController.h"
#include "platform/screens/appearance/InputKind.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QCloseEvent>
#include <QtGui/QShortcut>
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
    addMenu();
    auto* views = static_cast<QBoxLayout*>(layout());
    views->insertWidget(0, new HealthBanner(this));
    views->insertWidget(0, m_menu);
    for (auto* child : children())
        if (const auto* navigation = qobject_cast<platform::NavigationController*>(child))
            for (auto* controller : navigation->viewControllers())
                adopt(*controller);
    // What is left on the way back is saved.
    connect(this, &SplitViewController::topColumnChanged, this, [this](Column top) {
        if (top == Column::Primary && m_snippetViewController)
            m_snippetViewController->saveContents(Silent::Yes);
    });
}

void SnippetRootViewController::adopt(platform::ViewController& controller) {
    if (auto* list = qobject_cast<HomeListViewController*>(&controller)) {
        m_homeListViewController = list;
        list->delegate = this;
        list->creationDelegate = this;
        list->onAdd = [this] { presentNewModally(); };
        list->onSettings = [this] { presentSettingsModally(); };
    } else if (auto* editor = qobject_cast<SnippetViewController*>(&controller)) {
        m_snippetViewController = editor;
        editor->delegate = this;
        editor->onPickTheme = [this] { presentThemePicker(); };
        editor->onPickLanguage = [this] { presentLanguagePicker(); };
        connect(editor, &QWidget::windowTitleChanged, this, &SnippetRootViewController::nameWindow);
    }
}

void SnippetRootViewController::viewDidAppear(Animated animated) {
    showColumn(Column::Primary, Animated::No);
    SplitViewController::viewDidAppear(animated);
    checkWhatsNew(*this, *this, KeyStore::shared(), QCoreApplication::applicationVersion());
}

void SnippetRootViewController::addMenu() {
    using platform::MenuAction;
    const auto onEditor = [this](void (SnippetViewController::*action)()) {
        return [this, action] {
            if (m_snippetViewController) (m_snippetViewController->*action)();
        };
    };
    m_menu = new WindowMenu(
        {{.title = QStringLiteral("File"),
          .entries = {MenuAction{.title = QStringLiteral("New Snippet"),
                                 .handler = [this] { presentNewModally(); },
                                 .shortcut = QStringLiteral("Ctrl+N")},
                      MenuAction{.title = QStringLiteral("Save"),
                                 .handler = [this] { save(); },
                                 .shortcut = QStringLiteral("Ctrl+S")},
                      MenuAction{.title = QStringLiteral("Find in Snippet"),
                                 .handler = onEditor(&SnippetViewController::find),
                                 .shortcut = QStringLiteral("Ctrl+F")},
                      platform::Menu{.title = {},
                                     .entries = {MenuAction{.title = QStringLiteral("Settings"),
                                                            .handler = [this] { presentSettingsModally(); },
                                                            .shortcut = QStringLiteral("Ctrl+,")}},
                                     .display = platform::Menu::Display::Inline},
                      MenuAction{.title = QStringLiteral("Quit"),
                                 .handler = [this] { close(); },
                                 .shortcut = QStringLiteral("Ctrl+Q")}}}},
        this);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this), &QShortcut::activated, this,
            &QWidget::close);
    m_menu->setVisible(!isCollapsed());
    connect(this, &SplitViewController::collapsedChanged, m_menu,
            [this](bool isCollapsed) { m_menu->setVisible(!isCollapsed); });
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
    if (presentedViewController()) dismiss(platform::Animated::Yes, [this] { startTyping(); });
}

// By touch it would bring up the keyboard unasked.
void SnippetRootViewController::startTyping() {
    if (m_snippetViewController && platform::currentInput() != platform::InputKind::Touch)
        m_snippetViewController->textView().setFocus();
}

void SnippetRootViewController::didEdit(const std::shared_ptr<Snippet>& /*snippet*/) {}

void SnippetRootViewController::nameWindow(const QString& name) {
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

void SnippetRootViewController::didTapEdit() {
    if (m_snippetViewController) m_snippetViewController->editTapped();
}

void SnippetRootViewController::presentSettingsModally() {
    auto settings = std::make_unique<SettingsHostController>();
    settings->onTheme = [this](const QString& theme) {
        if (m_snippetViewController) m_snippetViewController->setTheme(theme);
    };
    present(std::make_unique<SnippetNavigationController>(std::move(settings)));
}

void SnippetRootViewController::presentThemePicker() {
    auto picker = std::make_unique<SearchSelectViewController>(platform::Highlightr::availableThemes(),
                                                               KeyStore::shared().codeTheme());
    picker->delegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(picker)));
}

void SnippetRootViewController::didSelectTheme(const QString& theme) {
    if (m_snippetViewController) m_snippetViewController->setTheme(theme);
    KeyStore::shared().setCodeTheme(theme);
}

void SnippetRootViewController::presentLanguagePicker() {
    const auto selected =
        m_snippetViewController ? m_snippetViewController->selectedLanguage() : std::nullopt;
    auto picker = std::make_unique<ListWithSelectionViewController>(
        QStringLiteral("Language"), Languages::shared().languages(), selected);
    picker->delegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(picker)));
}

void SnippetRootViewController::didSelectOption(const QString& language) {
    if (m_snippetViewController) m_snippetViewController->setSelectedLanguage(language);
}

void SnippetRootViewController::didPressButton(halcyonix::ModalViewController& /*modal*/) {}

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
