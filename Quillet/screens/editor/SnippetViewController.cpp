#include "Quillet/screens/editor/SnippetViewController.h"

#include "Halcyonix/KeyboardAccessory.h"
#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/browsing/TagSelectionView.h"
#include "Quillet/controls/QuilletNavigationBar.h"
#include "Quillet/controls/SelfSizingHostingController.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/KeyStore.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/screens/AlertMaker.h"
#include "Quillet/screens/code/CodeFont.h"
#include "Quillet/screens/code/FileSuffix.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "Quillet/screens/editor/MoreMenu.h"
#include "Quillet/screens/editor/SegmentEdits.h"
#include "platform/foundation/DateFormats.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/SizeClass.h"
#include "platform/screens/controllers/SplitViewController.h"
#include "platform/screens/controls/ActivityIndicator.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/sharing/ActivityViewController.h"
#include "platform/screens/sharing/ScreenImage.h"
#include "platform/screens/text/FindBar.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScroller>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

using platform::Asset;
using namespace std::chrono_literals;

const QString emptyText =
    QStringLiteral("Enter text here to start creating a snippet, or select one from the list.");
const QString placeholder = QStringLiteral("// Tap to add code");
const QString unreadableText =
    QStringLiteral("The text of this snippet cannot be read: %1. Select it again to try again.");
const QString defaultLanguage = QStringLiteral("swift");

constexpr auto autoSaveInterval = 20s;
constexpr QSize languagePickerSize(375, 375); // points
constexpr int insetWithoutKeyboard = 20;      // points, below the text once an on-screen keyboard is gone

QString now() {
    return platform::shortDateTime(QDateTime::currentDateTime());
}

} // namespace

SnippetViewController::SnippetViewController(QWidget* parent)
    : ViewController(parent)
    , m_head(new QWidget(this))
    , m_fakeNavigationBar(new QuilletNavigationBar(m_head))
    , m_snippetInfoContainer(new QWidget(this))
    , m_languageButton(new FancyButton(this))
    , m_pickLanguageButton(new platform::SymbolButton(QStringLiteral("chevron.down"),
                                                      QStringLiteral("Pick Language"), Asset::Accent, this))
    , m_themeButton(new FancyButton(this))
    , m_activityIndicator(new platform::ActivityIndicator(this))
    , m_buttons(new QWidget(this))
    , m_textViewContainer(new QWidget(this))
    , m_textView(new platform::TextView(m_textViewContainer))
    , m_textStorage(new CodeAttributedString(*m_textView))
    , m_text(*m_textView, CoreDataStack::shared().viewContext())
    , m_highlight(m_textStorage->highlightr())
    , m_timer(platform::Timer::Kind::Repeating, autoSaveInterval, [this] { autoSave(); }) {
    m_findBar = new platform::FindBar(*m_textView, m_textViewContainer);
    m_textStorage->setParent(this);
    m_currentTheme = KeyStore::shared().codeTheme();
    addBarButtons();
    layOutViews();
    setUpText();
    m_changes = CoreDataStack::shared().viewContext().onChange(
        [this](const platform::ContextChanges& changes) { takeChanges(changes); });
}

SnippetViewController::~SnippetViewController() = default;

void SnippetViewController::addBarButtons() {
    using platform::BarButtonItem;
    const auto add = [this](const QString& symbol, const QString& name, std::function<void()> action) {
        return &navigationItem().addTrailing(
            std::make_unique<BarButtonItem>(BarButtonItem::Look{symbol, name}, std::move(action)));
    };
    m_moreButton = add(QStringLiteral("ellipsis.circle"), QStringLiteral("More"), {});
    m_saveButton = add(QStringLiteral("square.arrow.down"), QStringLiteral("Save"),
                       [this] { saveContents(Silent::No); });
    m_saveButton->setShortcut(QKeySequence::Save);
    m_editButton = add(QStringLiteral("rectangle.and.pencil.and.ellipsis"), QStringLiteral("Edit Details"),
                       [this] { editTapped(); });
    m_findButton = add(QStringLiteral("search"), QStringLiteral("Find"), [this] { find(); });
    m_findButton->setShortcut(QKeySequence::Find);
    m_fakeNavigationBar->showItem(navigationItem(), std::nullopt);
}

void SnippetViewController::layOutViews() {
    m_languageButton->setSymbol(QStringLiteral("doc.text.fill"));
    m_languageButton->setSecondaryText(QStringLiteral("Language"));
    m_themeButton->setSymbol(QStringLiteral("paintpalette.fill"));
    m_themeButton->setSecondaryText(QStringLiteral("Theme"));
    m_themeButton->setMainText(m_currentTheme);
    for (auto* button : {m_languageButton, m_themeButton})
        button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_languageButton->delegate = this;
    m_themeButton->delegate = this;
    connect(m_pickLanguageButton, &QAbstractButton::clicked, this,
            &SnippetViewController::presentLanguagePicker);

    auto* buttons = new QHBoxLayout(m_buttons);
    buttons->setContentsMargins(13, 3, 16, 3); // the buttons have three more for their ring
    buttons->setSpacing(4);
    buttons->addWidget(m_languageButton);
    buttons->addWidget(m_pickLanguageButton);
    buttons->addWidget(m_themeButton);
    buttons->addSpacing(8);
    buttons->addWidget(m_activityIndicator);
    buttons->addStretch();

    auto* text = new QVBoxLayout(m_textViewContainer);
    text->setContentsMargins(0, 0, 0, 0);
    text->setSpacing(0);
    text->addWidget(m_findBar);
    text->addWidget(m_textView, 1);

    auto* info = new QVBoxLayout(m_snippetInfoContainer);
    info->setContentsMargins(0, 0, 0, 0);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* head = new QHBoxLayout(m_head);
    head->setContentsMargins(0, 6, 0, 0);
    head->setSpacing(0);
    head->addWidget(m_fakeNavigationBar, 1);
    column->addWidget(m_head);
    column->addWidget(m_snippetInfoContainer);
    column->addWidget(m_buttons);
    column->addSpacing(6);
    column->addWidget(m_textViewContainer, 1);
}

void SnippetViewController::setUpText() {
    m_textView->setFrameShape(QFrame::NoFrame);
    m_textView->setAccessibleName(QStringLiteral("Code"));
    m_textView->document()->setDocumentMargin(16);
    m_textView->setInputMethodHints(Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText |
                                    Qt::ImhPreferLowercase);
    QScroller::grabGesture(m_textView->viewport(), QScroller::TouchGesture);
    m_textView->installEventFilter(this);
    m_textView->viewport()->installEventFilter(this);
    connect(m_textView, &platform::TextView::dropRefused, this, &SnippetViewController::refuseDrop);
    connect(m_textView, &QPlainTextEdit::textChanged, this, &SnippetViewController::textChanged);
    // Closes the on-screen keyboard by giving up the focus.
    new halcyonix::KeyboardAccessory(*m_textView, Asset::Accent);
    connect(QGuiApplication::inputMethod(), &QInputMethod::visibleChanged, this, [this] {
        if (!QGuiApplication::inputMethod()->isVisible()) m_textView->setBottomInset(insetWithoutKeyboard);
    });
    m_textStorage->setLanguage(m_selectedLanguage.value_or(defaultLanguage));
    setupFontsThemeAndColors();
}

void SnippetViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    m_timer.start();
    autoSave();
    m_reloads = platform::NotificationCenter::defaultCenter().addObserver(
        reloadTextViewNotification, [this](const auto&) { setupFontsThemeAndColors(); });
    if (m_snippet) {
        load();
    } else {
        showHint();
        offerActions(false);
    }
    refreshInfo();
}

void SnippetViewController::offerActions(bool hasSnippet) {
    // A button that is disabled would hand the focus to any other screen.
    if (QWidget* focused = focusWidget(); !hasSnippet && focused && focused != m_textView)
        focused->clearFocus();
    for (QWidget* button :
         {static_cast<QWidget*>(m_languageButton), static_cast<QWidget*>(m_pickLanguageButton)})
        button->setVisible(hasSnippet);
    for (auto* button : {m_moreButton, m_editButton, m_saveButton})
        button->setEnabled(hasSnippet);
}

void SnippetViewController::viewWillAppear(platform::Animated animated) {
    ViewController::viewWillAppear(animated);
    m_moreButton->setMenu(moreMenu({.editDetails = [this] { editTapped(); },
                                    .remove = [this] { deleteTapped(); },
                                    .shareImage = [this] { shareImage(); },
                                    .shareText = [this] { shareText(); }}));
    showBar();
}

void SnippetViewController::resizeEvent(QResizeEvent* event) {
    ViewController::resizeEvent(event);
    showBar();
}

// Beside the list the screen has a bar of its own; by itself it needs the way back.
void SnippetViewController::showBar() {
    const bool isCompact = platform::horizontalSizeClass(*this) == platform::SizeClass::Compact;
    if (auto* navigation = navigationController()) navigation->setNavigationBarHidden(!isCompact);
    m_head->setVisible(!isCompact);
    auto* column = static_cast<QVBoxLayout*>(layout());
    if (isCompact == (column->indexOf(m_buttons) >= 0)) return;
    if (isCompact)
        column->insertWidget(column->indexOf(m_snippetInfoContainer) + 1, m_buttons);
    else
        static_cast<QHBoxLayout*>(m_head->layout())->insertWidget(0, m_buttons);
}

// The panel shows it, and the window's title bar.
void SnippetViewController::nameScreen() {
    setWindowTitle(m_snippet ? m_snippet->title() : QString());
    setAccessibleName(windowTitle());
}

void SnippetViewController::setSnippet(std::shared_ptr<Snippet> snippet) {
    if (snippet) {
        m_text.write();
        m_snippet = std::move(snippet);
        load();
    } else if (m_snippet) {
        m_text.abandon(*m_snippet);
        m_snippet.reset();
        showNoSnippet();
    }
}

void SnippetViewController::showNoSnippet() {
    m_highlight.cancel();
    m_text.leave();
    m_selectedSegment.reset();
    m_activityIndicator->stopAnimating();
    offerActions(false);
    m_screenTitle = QString();
    nameScreen();
    refreshInfo();
    m_textView->setEnabled(true);
    m_textView->setReadOnly(false);
    m_textView->setPlaceholderText(emptyText);
    if (m_textView->hasFocus())
        m_textStorage->setAttributedString({});
    else
        showHint();
}

// It is no code, and has no colours.
void SnippetViewController::showHint() {
    m_textStorage->setLanguage(QStringLiteral("plaintext"));
    m_textStorage->setAttributedString({emptyText, {}});
}

void SnippetViewController::load() {
    offerActions(true);
    nameScreen();
    m_text.leave();
    m_textStorage->setAttributedString({});
    m_activityIndicator->startAnimating();
    setSelectedLanguage(m_snippet->language());
    m_selectedSegment.reset();
    loadCode(CodeOwner(m_snippet));
    m_highlight.repeat();
    refreshInfo();
}

void SnippetViewController::loadCode(const CodeOwner& owner) {
    m_text.leave();
    m_textView->setReadOnly(true); // what is typed now would be overwritten
    const auto code = owner.readCode();
    if (!code) {
        showUnreadable(code.error().message);
        return;
    }
    m_textView->setEnabled(true);
    m_textView->setPlaceholderText(code->isEmpty() && !owner.segment() ? emptyText : placeholder);
    m_highlight.start(*code,
                      [this, owner](const platform::AttributedString& coloured) { arrive(owner, coloured); });
}

// First the text, then nothing but its colours: what was typed into it meanwhile stays.
void SnippetViewController::arrive(const CodeOwner& owner, const platform::AttributedString& code) {
    if (m_text.owner() == owner) {
        if (!m_textView->document()->isModified() && m_textView->text() == code.string)
            m_textStorage->setAttributedString(code);
        return;
    }
    m_textView->setPlaceholderText(placeholder);
    m_activityIndicator->stopAnimating();
    m_textStorage->setAttributedString(code);
    m_text.begin(owner, code.string);
    m_textView->setReadOnly(false);
}

// What cannot be read now must not be written over later.
void SnippetViewController::showUnreadable(const QString& reason) {
    m_highlight.cancel();
    m_activityIndicator->stopAnimating();
    m_textStorage->setAttributedString({});
    m_textView->setEnabled(false);
    m_textView->setPlaceholderText(unreadableText.arg(reason));
}

void SnippetViewController::takeChanges(const platform::ContextChanges& changes) {
    m_text.takeChanges(changes);
    if (!m_snippet || std::ranges::find(changes.updated, m_snippet) == changes.updated.end()) return;
    nameScreen();
    if (const auto language = m_snippet->language(); language && language != m_selectedLanguage)
        setSelectedLanguage(language);
}

bool SnippetViewController::isLoading() const {
    return m_activityIndicator->isAnimating();
}

bool SnippetViewController::isShowingHint() const {
    const QString text = m_textView->text();
    return text == emptyText || text == placeholder;
}

void SnippetViewController::saveContents(Silent silent) {
    if (isShowingHint()) return;
    if (!m_snippet) createOnSave();
    if (!m_snippet) return;
    m_text.write();
    m_saveButton->setEnabled(true);
    m_editButton->setEnabled(true);
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    if (silent == Silent::No) tellEdit();
}

void SnippetViewController::tellEdit() {
    platform::dispatchToMain([self = QPointer(this), snippet = m_snippet] {
        if (self && self->delegate) self->delegate->didEdit(snippet);
    });
}

void SnippetViewController::createOnSave() {
    const QString text = m_textView->text();
    if (text.isEmpty() || m_screenTitle == QString()) return;
    if (!m_selectedLanguage) {
        showAlert(*this, QStringLiteral("You must have a language selected to save a snippet."));
        return;
    }
    adoptNew(Snippet::create(m_screenTitle.value_or(QStringLiteral("New Snippet - ") + now()), QString(),
                             text, *m_selectedLanguage));
}

// The first key typed after a snippet was taken off the screen.
void SnippetViewController::createOnTyping() {
    const QString text = m_textView->text();
    if (text.isEmpty() || text == emptyText || !m_screenTitle) return;
    adoptNew(Snippet::create(*m_screenTitle, QStringLiteral("Notes: Snippet created at ") + now(), text,
                             m_selectedLanguage.value_or(defaultLanguage)));
}

// The text on screen is the new snippet's already, and stays with the caret in it.
void SnippetViewController::adoptNew(std::shared_ptr<Snippet> snippet) {
    m_snippet = std::move(snippet);
    m_text.adopt(CodeOwner(m_snippet));
    m_textView->setPlaceholderText(placeholder);
    nameScreen();
    offerActions(true);
    setSelectedLanguage(m_snippet->language());
    refreshInfo();
}

// With a segment on screen whose text is not the snippet's this saves each time.
void SnippetViewController::autoSave() {
    if (!m_snippet) return;
    const QString text = m_textView->text();
    const bool differs =
        (m_selectedSegment && m_selectedSegment->code() != text) || m_snippet->code() != text;
    // A save that failed has left its changes pending.
    if (differs || m_text.isUnwritten() || CoreDataStack::shared().viewContext().hasChanges())
        saveContents(Silent::No);
}

bool SnippetViewController::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    // A drop comes to a view that has no focus yet.
    if (type == QEvent::FocusIn || type == QEvent::KeyPress || type == QEvent::InputMethod ||
        type == QEvent::Drop)
        beginEditing();
    return ViewController::eventFilter(watched, event);
}

void SnippetViewController::beginEditing() {
    if (!isShowingHint()) return;
    m_textStorage->setLanguage(m_selectedLanguage.value_or(defaultLanguage));
    m_textStorage->setAttributedString({});
}

void SnippetViewController::textChanged() {
    if (m_snippet) return;
    createOnTyping();
    // A fresh screen waits for Save.
    m_saveButton->setEnabled(m_snippet || !(m_textView->document()->isEmpty() || isShowingHint()));
}

void SnippetViewController::didEdit(const std::shared_ptr<Snippet>& snippet) {
    setSnippet(snippet);
    if (delegate) delegate->didEdit(snippet);
}

void SnippetViewController::editTapped() {
    saveContents(Silent::Yes); // the form may replace the code, and it reloads this screen
    auto details = std::make_unique<SnippetDetailsViewController>(m_snippet);
    details->editDelegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(details)));
}

void SnippetViewController::deleteTapped() {
    if (!m_snippet) return;
    m_text.abandon(*m_snippet);
    SnippetService::shared().remove(*m_snippet);
    CoreDataStack::shared().viewContext().deleteObject(*m_snippet);
    platform::dispatchToMain([self = QPointer(this), deleted = m_snippet] {
        if (!self || self->m_snippet != deleted) return;
        self->setSnippet(nullptr);
        if (auto* split = self->splitViewController(); split && split->isCollapsed())
            split->showColumn(platform::SplitViewController::Column::Primary);
    });
}

void SnippetViewController::find() {
    m_findBar->open();
}

void SnippetViewController::setSelectedLanguage(const std::optional<QString>& language) {
    m_selectedLanguage = language;
    const QString shown = language.value_or(defaultLanguage);
    if (m_snippet) m_snippet->setLanguage(shown);
    m_languageButton->setMainText(shown);
    m_textStorage->setLanguage(shown);
}

void SnippetViewController::didTap(FancyButton& button) {
    const auto& ask = &button == m_languageButton ? onPickLanguage : onPickTheme;
    if (ask) ask();
}

void SnippetViewController::presentLanguagePicker() {
    auto picker = std::make_unique<LanguagePickerViewController>();
    picker->delegate = this;
    picker->setSelectedLanguage(m_snippet ? m_snippet->language() : std::nullopt);
    picker->setTitle(QStringLiteral("Pick Language"));
    picker->navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { dismiss(); }));
    auto navigation = std::make_unique<SnippetNavigationController>(std::move(picker));
    navigation->setPreferredContentSize(languagePickerSize);
    navigation->modalPresentationStyle = platform::ModalPresentationStyle::Popover;
    const QRect button = m_languageButton->geometry();
    navigation->popoverAnchor = {
        .view = this, .rect = QRect(button.center().x(), button.bottom() + 1, 0, 0), .arrow = Qt::TopEdge};
    present(std::move(navigation));
}

void SnippetViewController::didPickLanguage(const QString& language) {
    setSelectedLanguage(language);
    if (!m_snippet) return;
    SnippetService::shared().save(m_snippet);
    tellEdit();
}

void SnippetViewController::setTheme(const QString& theme) {
    m_currentTheme = theme;
    m_themeButton->setMainText(theme);
    setupFontsThemeAndColors();
}

void SnippetViewController::setupFontsThemeAndColors() {
    m_textStorage->highlightr()->setTheme(m_currentTheme);
    m_textStorage->setCodeFont(codeFont());
    m_textStorage->themeChanged();
}

// What is typed and not written yet goes before what is stored.
QString SnippetViewController::textToShare() const {
    const QString shown = m_textView->text();
    if (!shown.isEmpty()) return shown;
    return m_snippet ? m_snippet->code() : QString();
}

void SnippetViewController::showShareFailure() {
    platform::showAlert(*this, QStringLiteral("Quillet"), QStringLiteral("You must have some code to share."),
                        QStringLiteral("OK"));
}

void SnippetViewController::shareText() {
    const QString text = textToShare();
    if (text.isEmpty())
        showShareFailure();
    else
        presentShareSheet(text);
}

void SnippetViewController::shareImage() {
    if (textToShare().isEmpty())
        showShareFailure();
    else
        presentShareSheet(platform::imageOf(*m_textView));
}

void SnippetViewController::presentShareSheet(std::variant<QString, QImage> content) {
    const QString title = m_snippet ? m_snippet->title() : QString();
    auto sheet = std::make_unique<platform::ActivityViewController>(platform::ShareItem{
        std::move(content), title, fileSuffixOf(m_selectedLanguage.value_or(defaultLanguage))});
    const auto& bar =
        m_fakeNavigationBar->isVisible() ? *m_fakeNavigationBar : navigationController()->navigationBar();
    auto* anchor = bar.buttonOf(*m_moreButton);
    sheet->modalPresentationStyle = platform::ModalPresentationStyle::Popover;
    sheet->popoverAnchor = {.view = anchor, .rect = anchor->rect(), .arrow = Qt::TopEdge};
    present(std::move(sheet));
}

void SnippetViewController::refuseDrop(const QString& reason) {
    showAlert(*this, reason);
}

SnippetInfoCallbacks SnippetViewController::infoCallbacks() {
    using Chosen = std::shared_ptr<Segment>;
    return {.onEditTags = [this] { showTags(); },
            .onAddSegment = [this] { return addSegment(); },
            .onSelectSegment = [this](const Chosen& segment) { selectSegment(segment); },
            .onDeleteSegment = [this](const Chosen& segment) { deleteSegment(segment); },
            .onRenameSegment =
                [this](const Chosen& segment) {
                    if (segment) askSegmentName(*this, segment);
                }};
}

// Without a snippet the model keeps the last one, which is not shown.
void SnippetViewController::refreshInfo() {
    m_snippetInfoContainer->setVisible(m_snippet != nullptr);
    if (m_snippetInfoViewModel) {
        if (m_snippet) m_snippetInfoViewModel->snippet.set(m_snippet);
        return;
    }
    m_snippetInfoViewModel = std::make_shared<SnippetInfoViewModel>();
    m_snippetInfoViewModel->snippet.set(m_snippet);
    auto view = std::make_unique<SnippetInfoView>(m_snippetInfoViewModel, infoCallbacks());
    m_snippetInfoHostingController = new SelfSizingHostingController(std::move(view), m_snippetInfoContainer);
    m_snippetInfoContainer->layout()->addWidget(m_snippetInfoHostingController);
}

void SnippetViewController::showTags() {
    if (!m_snippet) return;
    SelectionNavigationController::presentSheet(*this,
                                                std::make_unique<TagSelectionView>(m_snippet, tagColors),
                                                [] { CoreDataStack::shared().save(SaveReason::AddedTag); });
}

// The text before it is not written: it is set aside until the next save.
std::shared_ptr<Segment> SnippetViewController::addSegment() {
    if (!m_snippet) return nullptr;
    CodeOwner(m_snippet).putBack(CoreDataStack::shared().viewContext()); // deleted elsewhere, it is worked on
    m_selectedSegment = addNewSegment(*m_snippet);
    loadCode(CodeOwner(m_snippet, m_selectedSegment));
    return m_selectedSegment;
}

void SnippetViewController::selectSegment(const std::shared_ptr<Segment>& segment) {
    if (!m_snippet) return;
    if (m_selectedSegment) m_text.writeShown();
    m_selectedSegment = segment && segment->snippet() == m_snippet.get() ? segment : nullptr;
    loadCode(m_selectedSegment ? CodeOwner(m_snippet, m_selectedSegment) : CodeOwner(m_snippet));
}

// Where it is the one on screen its text stays there, and is not the library's any more.
void SnippetViewController::deleteSegment(const std::shared_ptr<Segment>& segment) {
    if (!m_snippet || !segment) return;
    m_text.abandon(*segment);
    const bool isDeletedElsewhere = !segment->context();
    if (!isDeletedElsewhere) removeSegment(*m_snippet, *segment);
}

} // namespace quillet
