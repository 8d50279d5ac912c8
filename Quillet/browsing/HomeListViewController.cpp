#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/browsing/FolderSelectionView.h"
#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/browsing/SortMenu.h"
#include "Quillet/browsing/TagSelectionView.h"
#include "Quillet/cloud/AccountCheck.h"
#include "Quillet/cloud/CloudKitService.h"
#include "Quillet/core/UserSettings.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controllers/HostingController.h"

#include <QtCore/QPointer>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

using platform::BarButtonItem;

HomeListViewController::HomeListViewController(QWidget* parent)
    : ViewController(parent) {
    setTitle(QStringLiteral("Quillet"));
    navigationItem().setTitleSize(platform::NavigationItem::TitleSize::Large);
    addBarButtons();
}

void HomeListViewController::addBarButtons() {
    auto& add = navigationItem().addTrailing(std::make_unique<BarButtonItem>(
        BarButtonItem::Look{QStringLiteral("plus"), QStringLiteral("Add")}, [this] {
            if (onAdd) onAdd();
        }));
    add.setShortcut(QKeySequence::New);
    m_sortButton = &navigationItem().addTrailing(std::make_unique<BarButtonItem>(
        BarButtonItem::Look{QStringLiteral("arrow.up.arrow.down"), QStringLiteral("Sort")}));
    auto& settings = navigationItem().addTrailing(std::make_unique<BarButtonItem>(
        BarButtonItem::Look{QStringLiteral("gear.alt"), QStringLiteral("Settings")}, [this] {
            if (onSettings) onSettings();
        }));
    settings.setShortcut(Qt::CTRL | Qt::Key_Comma);
}

void HomeListViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    // Nobody posts it, and the repositories tell of every change; whoever does may do so all the same.
    m_contentUpdates = platform::NotificationCenter::defaultCenter().addObserver(cloudKitUpdateNotification,
                                                                                 [](const auto&) {});
    buildSortMenu();
    m_model = std::make_unique<SnippetListModel>();
    auto list = makeSnippetList();
    m_snippetList = list.get();
    auto* hosting = new platform::HostingController(std::move(list), this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(hosting);
}

std::unique_ptr<SnippetList> HomeListViewController::makeSnippetList() {
    auto list = std::make_unique<SnippetList>(*m_model, *this);
    list->onSelectSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didSelect(snippet);
    };
    list->onDeleteSnippet = [this](const auto& snippet) {
        if (delegate) delegate->didDelete(snippet);
    };
    list->onAddSnippetToFolder = [this](const auto& snippet) {
        if (delegate) delegate->addToFolder(snippet);
    };
    list->onAddFolder = [this] {
        SelectionNavigationController::presentSheet(
            *this, std::make_unique<FolderSelectionView>(nullptr, tagColors));
    };
    list->onEditTags = [this] {
        SelectionNavigationController::presentSheet(*this,
                                                    std::make_unique<TagSelectionView>(nullptr, tagColors));
    };
    return list;
}

void HomeListViewController::buildSortMenu() {
    m_sortButton->setMenu(
        sortMenu(UserSettings::shared().sortIndex.value(), [this](qint64 sortIndex) { setSort(sortIndex); }));
}

void HomeListViewController::setSort(qint64 sortIndex) {
    UserSettings::shared().sortIndex.set(sortIndex);
    buildSortMenu();
    m_model->rebuild(m_model->snippets(), m_model->folders(), m_model->tags());
}

void HomeListViewController::viewWillAppear(platform::Animated animated) {
    ViewController::viewWillAppear(animated);
    checkAccount(CloudKitService::shared().container(),
                 [list = QPointer(this)](const AccountWarning& warning) {
                     if (list) platform::showAlert(*list, warning.title, warning.message, warning.action);
                 });
}

void HomeListViewController::select(const std::shared_ptr<Snippet>& snippet) {
    if (m_snippetList) m_snippetList->select(snippet);
}

void HomeListViewController::didCreate(const std::shared_ptr<Snippet>& snippet) {
    if (creationDelegate) creationDelegate->didCreate(snippet);
}

} // namespace quillet
