#include "Quillet/screens/editor/SnippetViewController.h"

#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/SnippetRootViewController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controllers/NavigationBar.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/sharing/ActivityViewController.h"

#include <QtGui/QClipboard>
#include <QtGui/QTextBlock>

using namespace quillet;
using platform::TextView;
using Silent = SnippetViewController::Silent;

namespace {

const QString hint =
    QStringLiteral("Enter text here to start creating a snippet, or select one from the list.");

class Editor : public TemporaryLibrary {
protected:
    void open(QSize size = {1100, 700}) {
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        window = SnippetRootViewController::create();
        window->resize(size);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    SnippetViewController& editor() const { return *window->findChild<SnippetViewController*>(); }

    TextView& text() const { return editor().textView(); }

    static std::shared_ptr<Snippet> stored(const QString& title, const QString& code) {
        auto snippet = Snippet::create(title, {}, code, QStringLiteral("swift"));
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        return snippet;
    }

    bool waitForLoad() const {
        return QTest::qWaitFor([this] { return !editor().isLoading() && !text().isReadOnly(); });
    }

    void show(const std::shared_ptr<Snippet>& snippet) const {
        window->didSelect(snippet);
        ASSERT_TRUE(waitForLoad());
    }

    void type(const QString& typed) const {
        text().setFocus();
        QTest::keyClicks(&text(), typed);
    }

    // A snippet's segment of that title.
    static std::shared_ptr<Segment> segment(const Snippet& snippet, const QString& title) {
        for (const auto& each : snippet.sortedSegments())
            if (each->title() == title) return each;
        return nullptr;
    }

    // Presses a chip of the info panel.
    void press(const QString& chip) const {
        driver::click(*window, chip);
        ASSERT_TRUE(waitForLoad());
    }

    void chooseMore(const QString& entry) const {
        driver::click(*window, QStringLiteral("More"));
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        driver::choose(*menu, entry);
    }

    // In the share sheet.
    void copy() const {
        auto* sheet = window->findChild<platform::ActivityViewController*>();
        ASSERT_NE(sheet, nullptr);
        driver::clickRow(*sheet->findChild<platform::ListView*>(), QStringLiteral("Copy"));
        ASSERT_TRUE(QTest::qWaitFor([this] { return !editor().presentedViewController(); }));
        turn();
    }

    // What a new start of the program would find.
    QStringList codesOnDisk() const {
        CoreDataStack reopened(directory);
        QStringList codes;
        for (const auto* entity : {"Snippet", "Segment"})
            for (const auto& object : reopened.viewContext().fetch({QString::fromLatin1(entity), {}, {}, {}}))
                codes += object
                             ->value(object->entity().name == QStringLiteral("Snippet")
                                         ? static_cast<qsizetype>(Snippet::Code)
                                         : static_cast<qsizetype>(Segment::Code))
                             .toString();
        return codes;
    }

    std::unique_ptr<SnippetRootViewController> window;
};

TEST_F(Editor, AFreshScreenKeepsWhatIsTypedForSave) {
    open();
    window->setFocus();
    EXPECT_EQ(text().text(), hint);
    editor().saveContents(Silent::No);
    EXPECT_EQ(count<Snippet>(), 0U) << "the hint is no text";
    type(QStringLiteral("let a"));
    EXPECT_EQ(text().text(), QStringLiteral("let a")) << "the hint makes way";
    EXPECT_EQ(count<Snippet>(), 0U);
    QTest::keyClick(&text(), Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(editor().snippet());
    EXPECT_TRUE(editor().snippet()->title().startsWith(QStringLiteral("New Snippet - ")));
    EXPECT_EQ(editor().snippet()->language(), QStringLiteral("swift"));
    type(QStringLiteral(" = 1"));
    EXPECT_EQ(text().text(), QStringLiteral("let a = 1")) << "the caret stays, and no key is lost";
    window->close();
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("let a = 1")});
}

TEST_F(Editor, AfterADeletionTheFirstKeyMakesASnippet) {
    open();
    show(stored(QStringLiteral("gone"), QStringLiteral("old")));
    type(QStringLiteral("typed "));
    chooseMore(QStringLiteral("Delete"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor().snippet(); }));
    EXPECT_EQ(count<Snippet>(), 0U) << "no question, and what was typed does not bring it back";
    EXPECT_EQ(QApplication::focusWidget(), nullptr) << "the menu's button hands it to nobody";
    editor().saveContents(Silent::No);
    EXPECT_EQ(count<Snippet>(), 0U);
    type(QStringLiteral("abc"));
    ASSERT_TRUE(editor().snippet());
    EXPECT_EQ(editor().snippet()->title(), QString());
    EXPECT_TRUE(editor().snippet()->notes().startsWith(QStringLiteral("Notes: Snippet created at ")));
    EXPECT_TRUE(codesOnDisk().isEmpty()) << "not before a save";
    turn();
    window->close();
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("abc")});
}

TEST_F(Editor, WhatIsTypedBeforeTheColoursComeStays) {
    const QString code = QStringLiteral("let value = 1 // a line\n").repeated(4000);
    open();
    show(stored(QStringLiteral("large"), code));
    type(QStringLiteral("/* typed at once */"));
    const QString typed = QStringLiteral("/* typed at once */") + code;
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return !text().document()->firstBlock().layout()->formats().isEmpty(); }, 20'000));
    EXPECT_EQ(text().text(), typed);
    EXPECT_EQ(text().textCursor().position(), 19);
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{typed});
}

TEST_F(Editor, SkimmingThroughSnippetsWritesNothingAndEndsAtTheLast) {
    std::vector<std::shared_ptr<Snippet>> snippets;
    QStringList codes;
    for (int i = 0; i < 40; ++i) {
        codes += QStringLiteral("let number = %1\n").arg(i).repeated(1 + i * 50);
        snippets.push_back(stored(QString::number(i), codes.last()));
    }
    open();
    for (const auto& snippet : snippets) {
        window->didSelect(snippet);
        QTest::keyClicks(&text(), QStringLiteral("x")); // not taken: there is no text yet
        if (snippet->title().endsWith(u'7')) turn();
    }
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(text().text(), codes.last());
    window->save();
    EXPECT_EQ(codesOnDisk(), codes);
    window->didSelect(snippets.front());
    window.reset(); // in the middle of a highlight
    QTest::qWait(50);
    EXPECT_EQ(codesOnDisk(), codes);
}

TEST_F(Editor, AChangeFromElsewhereThatComesWhileATextLoadsIsShown) {
    const auto snippet = stored(QStringLiteral("shared"), QStringLiteral("one\ntwo"));
    open();
    CoreDataStack other(directory);
    const auto theirs = other.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).at(0);
    window->didSelect(snippet);
    static_cast<Snippet&>(*theirs).setCode(QStringLiteral("zero\none\ntwo"));
    other.save(SaveReason::AddedSnippet);
    ASSERT_TRUE(context().mergeChanges());
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(text().text(), QStringLiteral("zero\none\ntwo"));
}

TEST_F(Editor, SegmentsKeepTheirTextsAndLoseNoneOnTheWay) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    type(QStringLiteral("typed "));
    driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(snippet->code(), QStringLiteral("own")) << "not written by the way";
    ASSERT_TRUE(editor().selectedSegment());
    EXPECT_EQ(editor().selectedSegment()->title(), QStringLiteral("Segment 1"));
    EXPECT_EQ(text().text(), QString());
    type(QStringLiteral("first"));
    driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    type(QStringLiteral("second"));
    press(QStringLiteral("Segment 1"));
    EXPECT_EQ(text().text(), QStringLiteral("first"));
    EXPECT_EQ(segment(*snippet, QStringLiteral("Segment 2"))->code(), QStringLiteral("second"))
        << "choosing another one writes a segment";
    press(QStringLiteral("Code"));
    EXPECT_EQ(editor().selectedSegment(), nullptr);
    EXPECT_EQ(text().text(), QStringLiteral("typed own"));
    press(QStringLiteral("Segment 2"));
    window->save();
    QStringList codes = codesOnDisk();
    codes.sort();
    EXPECT_EQ(codes,
              (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("typed own")}));
}

TEST_F(Editor, ADeletedSegmentStaysOnScreenAndOutOfTheLibrary) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    for (int i = 0; i < 3; ++i)
        driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    press(QStringLiteral("Segment 2"));
    type(QStringLiteral("doomed"));
    auto& chip = driver::waitFor<QAbstractButton>(*window, QStringLiteral("Segment 2"));
    QContextMenuEvent event(QContextMenuEvent::Mouse, chip.rect().center(),
                            chip.mapToGlobal(chip.rect().center()));
    QApplication::sendEvent(&chip, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    driver::choose(*menu, QStringLiteral("Delete Segment"));
    EXPECT_EQ(text().text(), QStringLiteral("doomed"));
    type(QStringLiteral(" more"));
    window->save();
    EXPECT_EQ(count<Segment>(), 2U);
    driver::click(*window, QStringLiteral("Add Segment"));
    EXPECT_EQ(editor().selectedSegment()->title(), QStringLiteral("Segment 3"))
        << "counted, beside the third";
    window->save();
    EXPECT_EQ(codesOnDisk().filter(QStringLiteral("doomed")), QStringList());
}

TEST_F(Editor, ASegmentThatWasDeletedElsewhereComesBackWithWhatWasTyped) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    window->save();
    CoreDataStack other(directory);
    other.viewContext().deleteObject(
        *other.viewContext().fetch({QStringLiteral("Segment"), {}, {}, {}}).at(0));
    other.save(SaveReason::EditedItem);
    ASSERT_TRUE(context().mergeChanges());
    EXPECT_EQ(count<Segment>(), 0U);
    type(QStringLiteral("typed"));
    window->save();
    EXPECT_EQ(codesOnDisk(), (QStringList{QStringLiteral("own"), QStringLiteral("typed")}));
    EXPECT_EQ(snippet->sortedSegments().size(), 1U);
}

TEST_F(Editor, WhatAnotherDeviceDeletesCanStillBeWorkedOn) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    const auto tag = Tag::create(QStringLiteral("red"), 6, {});
    CoreDataStack::shared().save(SaveReason::AddedTag);
    open();
    show(snippet);
    driver::click(editor(), QStringLiteral("Tags"));
    auto* sheet = editor().presentedViewController();
    ASSERT_NE(sheet, nullptr);
    CoreDataStack other(directory);
    other.viewContext().deleteObject(
        *other.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).at(0));
    other.save(SaveReason::EditedItem);
    ASSERT_TRUE(context().mergeChanges());
    driver::clickRow(*sheet->findChild<platform::ListView*>(), QStringLiteral("red"));
    driver::click(*window, QStringLiteral("Close"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor().presentedViewController(); }));
    EXPECT_EQ(count<Snippet>(), 0U) << "that alone does not bring it back";
    driver::click(*window, QStringLiteral("Add Segment"));
    EXPECT_EQ(count<Snippet>(), 1U);
    EXPECT_EQ(snippet->sortedSegments().size(), 1U);
}

TEST_F(Editor, ASegmentIsRenamedAndAnEmptyNameIsNone) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    auto& chip = driver::waitFor<QAbstractButton>(*window, QStringLiteral("Segment 1"));
    chip.setFocus();
    QTest::keyClick(&chip, Qt::Key_Menu);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    driver::choose(*menu, QStringLiteral("Rename Segment"));
    auto& field = driver::waitFor<QLineEdit>(*window, QStringLiteral("Title"));
    QTest::keyClick(&field, Qt::Key_Return);
    driver::click(*window, QStringLiteral("Dismiss"));
    turn();
    QTest::keyClicks(&field, QStringLiteral("Header"));
    QTest::keyClick(&field, Qt::Key_Return);
    turn();
    EXPECT_NE(segment(*snippet, QStringLiteral("Header")), nullptr);
    EXPECT_FALSE(context().hasChanges());
}

using EditorDeathTest = Editor;

TEST_F(EditorDeathTest, ASegmentWhoseDeletionCannotBeSavedStopsTheProgram) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    driver::click(*window, QStringLiteral("Add Segment"));
    ASSERT_TRUE(waitForLoad());
    auto lock =
        platform::SqliteConnection::open(storePath, platform::SqliteConnection::Access::Existing).value();
    ASSERT_TRUE(lock->run(QStringLiteral("BEGIN EXCLUSIVE")));
    auto* info = window->findChild<SnippetInfoView*>();
    EXPECT_DEATH(info->callbacks().onDeleteSegment(editor().selectedSegment()), "SegmentEdits.cpp:[0-9]+");
}

TEST_F(Editor, WhatIsOnScreenIsSharedAndNothingIsNot) {
    const auto snippet = stored(QStringLiteral("empty"), QString());
    open();
    show(snippet);
    for (const auto* entry : {"Share Text", "Share Image"}) {
        chooseMore(QString::fromLatin1(entry));
        auto* alert = window->findChild<platform::AlertController*>();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->accessibleDescription(), QStringLiteral("You must have some code to share."));
        driver::click(*window, QStringLiteral("OK"));
        turn();
    }
    type(QStringLiteral("not saved yet"));
    chooseMore(QStringLiteral("Share Text"));
    copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("not saved yet"));
    turn();
    chooseMore(QStringLiteral("Share Image"));
    copy();
    const QImage image = QGuiApplication::clipboard()->image();
    EXPECT_EQ(image.size(), text().viewport()->size() * window->devicePixelRatio());
    EXPECT_EQ(image.pixelColor(image.width() - 2, image.height() - 2),
              text().palette().color(QPalette::Base));
}

TEST_F(Editor, ALanguageFromThePopoverIsSavedOneFromTheListWaits) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open();
    show(snippet);
    driver::click(editor(), QStringLiteral("Pick Language"));
    auto* picker = window->findChild<LanguagePickerViewController*>();
    ASSERT_NE(picker, nullptr);
    driver::clickRow(*picker->findChild<platform::ListView*>(), QStringLiteral("python"));
    EXPECT_EQ(snippet->language(), QStringLiteral("python"));
    EXPECT_FALSE(context().hasChanges());
    driver::click(*window, QStringLiteral("Close"));
    turn();
    window->didSelectOption(QStringLiteral("ruby"));
    EXPECT_EQ(snippet->language(), QStringLiteral("ruby"));
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(Editor, TheSizeOfTheCodeIsNoSetting) {
    open();
    const QFont before = text().font();
    UserSettings::shared().fontSize.set(30);
    platform::NotificationCenter::defaultCenter().post(reloadTextViewNotification);
    EXPECT_EQ(text().font(), before);
}

TEST_F(Editor, AWindowThatBecomesNarrowHasAWayBackAlsoWithoutASnippet) {
    open();
    const auto& bar = editor().navigationController()->navigationBar();
    EXPECT_FALSE(bar.isVisible());
    window->resize(390, 700);
    window->showColumn(platform::SplitViewController::Column::Secondary);
    EXPECT_TRUE(bar.isVisible());
    driver::click(*window, QStringLiteral("Back"));
    EXPECT_FALSE(text().isVisible());
    window->resize(1000, 700);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(Editor, InANarrowWindowADeletionLeadsBackToTheList) {
    const auto snippet = stored(QStringLiteral("s"), QStringLiteral("own"));
    open({390, 700});
    show(snippet);
    ASSERT_TRUE(text().isVisible());
    type(QStringLiteral("typed "));
    chooseMore(QStringLiteral("Delete"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !text().isVisible(); }));
    window->save();
    EXPECT_EQ(count<Snippet>(), 0U);
}

} // namespace
