#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/details/HighlightrView.h"
#include "Quillet/screens/details/LanguagePickerCell.h"
#include "Quillet/screens/details/LanguagePickerViewController.h"
#include "Quillet/screens/details/Languages.h"
#include "Quillet/screens/details/ListWithSelectionViewController.h"
#include "Quillet/screens/details/SearchSelectViewController.h"
#include "platform/screens/style/Style.h"

#include <QtGui/QAccessible>
#include <QtGui/QTextBlock>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>

using namespace quillet;
using platform::ListView;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

QStringList titlesOf(const ListView& list) {
    QStringList titles;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        titles += list.model()->index(row, 0).data().toString();
    return titles;
}

QStringList checkedIn(const ListView& list) {
    QStringList titles;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const auto index = list.model()->index(row, 0);
        if (index.data(ListView::AccessoryRole) == static_cast<int>(ListView::Accessory::Checkmark))
            titles += index.data().toString();
    }
    return titles;
}

bool isColourful(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).hsvSaturation() > 150) return true;
    return false;
}

// Pickers over an empty window, and what they told.
class Pickers : public TemporaryLibrary,
                public ListWithSelectionViewControllerDelegate,
                public SearchSelectDelegate,
                public LanguagePickerDelegate,
                public LanguagePickerCellDelegate {
protected:
    Pickers() {
        platform::applyStyle();
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        window.resize(1000, 700);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void didSelectOption(const QString& option) override {
        told += option;
        checkedWhenTold = checkedIn(list());
    }

    void didSelectTheme(const QString& theme) override { told += theme; }

    void didPickLanguage(const QString& language) override { told += language; }

    void didToggle(LanguagePickerCell& cell) override {
        told += cell.toggle().isChecked() ? q("on") : q("off");
    }

    template <typename T>
    T& show(std::unique_ptr<T> picker) {
        picker->delegate = this;
        T& shown = *picker;
        window.present(std::make_unique<SnippetNavigationController>(std::move(picker)));
        turn();
        return shown;
    }

    ListView& list() { return *window.findChild<ListView*>(); }

    QLineEdit& search() { return driver::waitFor<QLineEdit>(window, q("Search")); }

    bool isOpen() {
        turn();
        return window.presentedViewController() != nullptr;
    }

    platform::ViewController window;
    QStringList told;
    QStringList checkedWhenTold;
};

TEST_F(Pickers, TheLanguagesAreTheHighlightersButForOneName) {
    const auto& languages = Languages::shared().languages();
    EXPECT_TRUE(languages.contains(q("swift")));
    EXPECT_TRUE(languages.filter(q("fuck")).isEmpty());
    QStringList all = platform::Highlightr::supportedLanguages();
    EXPECT_GT(all.removeIf([](const QString& name) { return name.contains(q("fuck")); }), 0);
    EXPECT_EQ(languages, all);
}

TEST_F(Pickers, AListFindsStartsWhenTypingRestsMarksTheChoiceAndCloses) {
    const QStringList options{q("c"), q("objc"), q("c++"), q("Caml")};
    show(std::make_unique<ListWithSelectionViewController>(q("L"), options, q("objc")));
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(checkedIn(list()), QStringList{q("objc")});
    QTest::keyClicks(&search(), q("C"));
    EXPECT_EQ(titlesOf(list()), options) << "not yet";
    EXPECT_TRUE(QTest::qWaitFor([this] { return titlesOf(list()) == QStringList{q("c"), q("c++")}; }))
        << "the query is in lower case, the options are as they are";
    QTest::keyClicks(&search(), q("+"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return titlesOf(list()) == QStringList{q("c++")}; }));
    search().clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return titlesOf(list()) == options; }));
    EXPECT_EQ(list().currentIndex().data(), q("objc"));
    driver::clickRow(list(), q("Caml"));
    EXPECT_EQ(told, QStringList{q("Caml")});
    EXPECT_EQ(checkedWhenTold, QStringList{q("Caml")});
    EXPECT_FALSE(isOpen());
}

TEST_F(Pickers, AListWorksByKeysAndItsRowsHaveTheirSize) {
    auto& picker = show(std::make_unique<ListWithSelectionViewController>(
        q("L"), QStringList{q("a"), q("b"), q("bc")}, std::nullopt));
    const QRect row = list().visualRect(list().model()->index(1, 0));
    EXPECT_EQ(row.height(), 44);
    const QImage picture = picker.grab().toImage();
    const auto isCard = [&](int x) {
        const int y = list().mapTo(&picker, row.center()).y() + row.height() / 2 - 4;
        return picture.pixelColor(QPoint(x, y) * picker.devicePixelRatio()) ==
               platform::color(platform::Asset::Card);
    };
    EXPECT_FALSE(isCard(19));
    EXPECT_TRUE(isCard(20));
    EXPECT_TRUE(isCard(picker.width() - 21));
    EXPECT_FALSE(isCard(picker.width() - 20));

    QTest::keyClicks(&search(), q("b"));
    QTest::keyClick(&search(), Qt::Key_Return); // waits for nothing
    EXPECT_EQ(told, QStringList{q("b")});
    EXPECT_FALSE(isOpen());
    show(std::make_unique<ListWithSelectionViewController>(q("L"), QStringList{q("a")}, std::nullopt));
    QTest::keyClicks(&search(), q("none"));
    QTest::keyClick(&search(), Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    QTest::keyClick(&search(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(told, QStringList{q("b")});
}

TEST_F(Pickers, AThemeIsPreviewedAndToldWhenItIsChosenAndThePickerStays) {
    auto& picker = show(
        std::make_unique<SearchSelectViewController>(platform::Highlightr::availableThemes(), q("xcode")));
    auto& preview = picker.highlighterView();
    EXPECT_EQ(picker.title(), q("Theme"));
    EXPECT_EQ(preview.height(), 160);
    EXPECT_NE(driver::find<QLabel>(picker, q("THEMES")), nullptr);
    EXPECT_EQ(checkedIn(list()), QStringList{q("xcode")});
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));

    QTest::keyClick(&search(), Qt::Key_Up);
    const QString above = list().currentIndex().data().toString();
    EXPECT_NE(above, q("xcode"));
    EXPECT_EQ(preview.theme(), q("xcode")) << "an arrow only moves";
    QTest::keyClick(&search(), Qt::Key_Return);
    EXPECT_EQ(preview.theme(), above);
    EXPECT_EQ(checkedIn(list()), QStringList{above});

    QTest::keyClicks(&search(), q("Monokai-s"));
    EXPECT_GT(list().model()->rowCount(), 1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return titlesOf(list()) == QStringList{q("monokai-sublime")}; }));
    QTest::keyClick(&search(), Qt::Key_Tab);
    ASSERT_TRUE(list().hasFocus());
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_EQ(told, (QStringList{above, q("monokai-sublime")}));
    const QColor background(0x23, 0x24, 0x1F);
    for (const QWidget* each : std::initializer_list<QWidget*>{&preview, preview.parentWidget()})
        EXPECT_EQ(each->palette().color(QPalette::Window), background);
    EXPECT_EQ(preview.textView().palette().color(QPalette::Base), background);
    EXPECT_TRUE(isOpen());
    driver::click(window, q("Close"));
    EXPECT_FALSE(isOpen());
}

TEST_F(Pickers, ThePreviewShowsColouredCodeAndTakesNoInput) {
    auto& preview = show(std::make_unique<SearchSelectViewController>(QStringList{q("xcode")}, std::nullopt))
                        .highlighterView();
    auto& text = preview.textView();
    const QString code = q("class Hello: BaseClass {\n"
                           "    let message = \"hello, world\"\n"
                           "\n"
                           "    func saySomething() -> String {\n"
                           "        return message\n"
                           "    }\n"
                           "}");
    EXPECT_EQ(preview.theme(), q("xcode"));
    EXPECT_EQ(text.text(), code);
    QTest::mouseClick(text.viewport(), Qt::LeftButton);
    EXPECT_TRUE(search().hasFocus());
    QTest::keyClicks(&text, q("x"));
    EXPECT_EQ(text.text(), code);
    EXPECT_EQ(text.focusPolicy(), Qt::NoFocus);
    auto* accessible = QAccessible::queryAccessibleInterface(&preview);
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible->text(QAccessible::Name), q("Preview"));
    EXPECT_EQ(accessible->childCount(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isColourful(preview.grab().toImage()); }, 20'000));
}

TEST_F(Pickers, TheLanguageOfThePopoverIsMarkedAndToldAndThePopoverStays) {
    auto picker = std::make_unique<LanguagePickerViewController>();
    picker->setSelectedLanguage(q("swift"));
    auto& shown = show(std::move(picker));
    EXPECT_EQ(titlesOf(list()), Languages::shared().languages());
    EXPECT_EQ(checkedIn(list()), QStringList{q("swift")});
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
    driver::clickRow(list(), q("python"));
    EXPECT_EQ(told, QStringList{q("python")});
    EXPECT_EQ(checkedIn(list()), QStringList{q("python")});
    EXPECT_EQ(shown.selectedLanguage(), q("python"));
    EXPECT_TRUE(isOpen());
}

TEST_F(Pickers, SwitchesOfLanguagesPromiseMoreThanTheyDo) {
    show(std::make_unique<LanguagePickerViewController>(LanguagePickerViewControllerMode::settings));
    EXPECT_NE(
        driver::find<QLabel>(window, q("The languages you turn off here will be hidden throughout the app.")),
        nullptr);
    const auto cells = window.findChildren<LanguagePickerCell*>();
    ASSERT_EQ(cells.size(), Languages::shared().languages().size());
    EXPECT_EQ(cells[0]->language, std::nullopt);
    cells[0]->delegate = this;
    auto& toggle = cells[0]->toggle();
    EXPECT_EQ(toggle.text(), Languages::shared().languages()[0]);
    EXPECT_TRUE(toggle.isChecked());
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, toggle.rect().center());
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_EQ(told, (QStringList{q("off"), q("on")}));
    EXPECT_TRUE(Languages::shared().languages().contains(toggle.text()));
}

} // namespace
