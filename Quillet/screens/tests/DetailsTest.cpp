#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/Repository.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/ActivityIndicator.h"
#include "platform/screens/controls/DisclosureRow.h"
#include "platform/screens/list/GroupedForm.h"
#include "platform/screens/style/Style.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QCheckBox>

using namespace quillet;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

QStringList titlesOnDisk(const QString& directory) {
    CoreDataStack reopened(directory);
    QStringList titles;
    const Repository<Snippet> repository(reopened.viewContext());
    for (const auto& snippet : repository.results().value())
        titles += snippet->title();
    return titles;
}

// The form over an empty window, and who it reports to.
class DetailsForm : public TemporaryLibrary, public SnippetCreationDelegate, public SnippetEditDelegate {
protected:
    DetailsForm() {
        platform::applyStyle();
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        window.resize(1000, 700);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void didCreate(const std::shared_ptr<Snippet>& snippet) override {
        created = snippet;
        storedWhenTold = titlesOnDisk(directory);
        lastLanguageWhenTold = UserSettings::shared().lastLanguage.value();
    }

    void didEdit(const std::shared_ptr<Snippet>& snippet) override {
        edited = snippet;
        storedWhenTold = titlesOnDisk(directory);
    }

    void open(const std::shared_ptr<Snippet>& snippet = nullptr,
              std::optional<Language> startLanguage = std::nullopt) {
        auto form = std::make_unique<SnippetDetailsViewController>(snippet);
        form->delegate = this;
        form->editDelegate = this;
        form->startLanguage = startLanguage;
        window.present(std::make_unique<SnippetNavigationController>(std::move(form)));
        ASSERT_TRUE(QTest::qWaitFor([this] { return field("Name").hasFocus(); }));
    }

    static std::shared_ptr<Snippet> stored(const QString& notes, const QString& language) {
        auto snippet = Snippet::create(q("Title"), notes, q("code"), language);
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        return snippet;
    }

    QLineEdit& field(const char* name) { return driver::waitFor<QLineEdit>(window, q(name)); }

    QString language() { return window.findChild<platform::DisclosureRow*>()->accessibleDescription(); }

    void press(const char* name) { driver::click(window, q(name)); }

    void pick(const char* language) {
        press("Language");
        QTest::keyClicks(&field("Search"), q(language));
        QTest::keyClick(&field("Search"), Qt::Key_Return);
        turn();
    }

    void switchImportOn() {
        auto* import = window.findChild<QCheckBox*>();
        QTest::mouseClick(import, Qt::LeftButton, {}, import->rect().center());
        EXPECT_TRUE(import->isChecked());
    }

    // Saves in vain.
    void expectRefusal() {
        press("Save");
        auto* alert = window.findChild<platform::AlertController*>();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->title(), q("Quillet"));
        EXPECT_EQ(alert->accessibleDescription(),
                  q("You need a title and language selected to create a snippet."));
        press("Okay");
        turn();
        EXPECT_FALSE(created || edited);
    }

    bool isGone() {
        turn();
        return window.findChild<SnippetDetailsViewController*>() == nullptr;
    }

    platform::ViewController window;
    std::shared_ptr<Snippet> created;
    std::shared_ptr<Snippet> edited;
    QStringList storedWhenTold;
    std::optional<QString> lastLanguageWhenTold;
};

TEST_F(DetailsForm, ANewSnippetStartsInTheLanguageGivenElseInTheLastOne) {
    const std::pair<Language, const char*> labels[]{{Language::swift, "Swift"},
                                                    {Language::objectiveC, "Objective-C"},
                                                    {Language::python, "Python"},
                                                    {Language::javascript, "Javascript"}};
    for (const auto& [language, label] : labels) {
        open(nullptr, language);
        EXPECT_EQ(this->language(), q(label));
        press("Cancel");
        EXPECT_TRUE(isGone());
    }
    open();
    EXPECT_EQ(language(), QString());
    press("Cancel");
    EXPECT_TRUE(isGone());
    UserSettings::shared().lastLanguage.set(q("ruby"));
    open();
    EXPECT_EQ(language(), q("ruby"));
}

TEST_F(DetailsForm, WhatIsCreatedIsStoredBeforeItIsToldAndItsLanguageKeptForTheNext) {
    open();
    QTest::keyClicks(&field("Name"), q("New"));
    pick("python");
    QTest::keyClicks(&field("Notes"), q("a note"));
    press("Save");
    ASSERT_TRUE(created);
    EXPECT_EQ(storedWhenTold, QStringList{q("New")});
    EXPECT_EQ(lastLanguageWhenTold, std::nullopt);
    EXPECT_EQ(UserSettings::shared().lastLanguage.value(), q("python"));
    EXPECT_EQ(created->language(), q("python"));
    EXPECT_EQ(created->notes(), q("a note"));
    EXPECT_EQ(created->code(), QString());

    // Nobody has taken the form away.
    EXPECT_TRUE(driver::waitFor<platform::ActivityIndicator>(window, q("Working")).isAnimating());
    EXPECT_FALSE(driver::find<QAbstractButton>(window, q("Save"))->isEnabled());
    QTest::keyClick(&field("Notes"), Qt::Key_Return);
    EXPECT_EQ(count<Snippet>(), 1U);
    EXPECT_FALSE(edited);
}

TEST_F(DetailsForm, NameAndLanguageAreNeededAndOneBlankIsNone) {
    open();
    pick("swift");
    expectRefusal();
    QTest::keyClicks(&field("Name"), q(" "));
    expectRefusal();
    EXPECT_EQ(count<Snippet>(), 0U);
    QTest::keyClicks(&field("Name"), q(" "));
    press("Save");
    ASSERT_TRUE(created);
    EXPECT_EQ(created->title(), q("  "));
}

TEST_F(DetailsForm, ALanguageOfOneBlankIsNone) {
    const auto snippet = stored({}, q(" "));
    open(snippet);
    QTest::keyClicks(&field("Name"), q(" 2"));
    expectRefusal();
    EXPECT_EQ(snippet->title(), q("Title"));
    pick("ruby");
    press("Save");
    EXPECT_EQ(edited, snippet);
    EXPECT_EQ(snippet->language(), q("ruby"));
}

TEST_F(DetailsForm, AnEditLeavesUnitForUnitWhatItDoesNotChange) {
    const QString notes =
        q("one\r\ntwo\u2028three\t\u0001") + QChar(char16_t{0xD800}) + q("\nx").repeated(40'000);
    const auto snippet = stored(notes, q("no such language"));
    open(snippet);
    QTest::keyClick(&field("Notes"), Qt::Key_Home);
    QTest::keyClicks(&field("Name"), q("!"));
    press("Save");
    EXPECT_EQ(edited, snippet);
    EXPECT_EQ(storedWhenTold, QStringList{q("Title!")});
    EXPECT_TRUE(snippet->notes() == notes);
    EXPECT_EQ(snippet->language(), q("no such language"));
    EXPECT_EQ(snippet->code(), q("code"));
    EXPECT_TRUE(isGone());

    open(snippet);
    QTest::keyClick(&field("Notes"), Qt::Key_Home);
    QTest::keyClicks(&field("Notes"), q("0"));
    press("Save");
    EXPECT_TRUE(snippet->notes() == u'0' + notes);
}

TEST_F(DetailsForm, TheClipboardsTextBecomesTheCodeIfThereIsAny) {
    const auto snippet = stored({}, q("swift"));
    QGuiApplication::clipboard()->clear();
    open(snippet);
    switchImportOn();
    press("Save");
    EXPECT_EQ(snippet->code(), q("code"));
    EXPECT_TRUE(isGone());
    QGuiApplication::clipboard()->setText(q("pasted"));
    open(snippet);
    press("Save");
    EXPECT_EQ(snippet->code(), q("code"));
    EXPECT_TRUE(isGone());
    open(snippet);
    switchImportOn();
    press("Save");
    EXPECT_EQ(snippet->code(), q("pasted"));
}

TEST_F(DetailsForm, LargeTextFitsANarrowWindow) {
    QFont large = QApplication::font();
    large.setPointSizeF(2.5 * large.pointSizeF());
    QApplication::setFont(large);
    window.resize(390, 700);
    open();
    const auto* form = window.findChild<platform::GroupedForm*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->widget()->width() == form->viewport()->width(); }))
        << form->widget()->width() << " in " << form->viewport()->width();
    const auto* import = window.findChild<QCheckBox*>();
    EXPECT_GT(import->height(), 2 * import->fontMetrics().height()) << "its text wraps";
}

TEST_F(DetailsForm, TheKeyboardGoesThroughTheFormAndSaves) {
    open(nullptr, Language::swift);
    const auto focused = [] { return QApplication::focusWidget(); };
    QTest::keyClicks(focused(), q("Keys"));
    QTest::keyClick(focused(), Qt::Key_Tab);
    EXPECT_EQ(focused()->accessibleName(), q("Language"));
    QTest::keyClick(focused(), Qt::Key_Return);
    EXPECT_EQ(focused(), &field("Search"));
    QTest::keyClick(focused(), Qt::Key_Down);
    QTest::keyClick(focused(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return field("Name").hasFocus(); }));
    EXPECT_NE(language(), q("Swift"));
    QTest::keyClick(focused(), Qt::Key_Tab);
    QTest::keyClick(focused(), Qt::Key_Tab);
    EXPECT_EQ(focused(), &field("Notes"));
    QTest::keyClick(focused(), Qt::Key_Tab);
    QTest::keyClick(focused(), Qt::Key_Space);
    EXPECT_TRUE(window.findChild<QCheckBox*>()->isChecked());
    QTest::keyClick(focused(), Qt::Key_Backtab);
    QTest::keyClick(focused(), Qt::Key_Return);
    EXPECT_TRUE(created);
}

} // namespace
