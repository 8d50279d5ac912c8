#include "Quillet/core/Repository.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/HealthBanner.h"
#include "Quillet/screens/SnippetRootViewController.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtGui/QTextBlock>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>

using namespace quillet;
using platform::TextView;

namespace {

class LibraryScreens : public TemporaryLibrary {
protected:
    std::unique_ptr<SnippetRootViewController> window;

    void open(QSize size = {1100, 700}) {
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        window = SnippetRootViewController::create();
        window->resize(size);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    // What was opened last lies on top.
    template <typename T>
    T* named(const char* accessibleName) const {
        T* found = nullptr;
        for (auto* widget : window->findChildren<T*>())
            if (widget->isVisible() &&
                (widget->accessibleName() == QString::fromUtf8(accessibleName) ||
                 widget->property("text").toString() == QString::fromUtf8(accessibleName)))
                found = widget;
        return found;
    }

    TextView* code() const { return window->findChild<TextView*>(); }

    void click(const char* name) const {
        auto* button = named<QAbstractButton>(name);
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
        turn();
    }

    // Fills the form for a new snippet by the keyboard and saves it.
    void createByForm(const QString& name, const QString& language) const {
        click("Add");
        QTest::keyClicks(named<QLineEdit>("Name"), name);
        click("Language");
        QTest::keyClicks(named<QLineEdit>("Search"), language);
        QTest::keyClick(named<QLineEdit>("Search"), Qt::Key_Return);
        turn();
        click("Save");
        ASSERT_TRUE(waitForLoad());
    }

    // Until then the editor takes no typing.
    bool waitForLoad() const {
        return QTest::qWaitFor([this] { return !code()->isReadOnly(); });
    }

    static Repository<Snippet>::Results stored() {
        CoreDataStack& stack = CoreDataStack::shared();
        return Repository<Snippet>(stack.viewContext()).results().value();
    }

    // What a new start of the program would find.
    QStringList codesOnDisk() const {
        CoreDataStack reopened(directory);
        QStringList codes;
        const Repository<Snippet> repository(reopened.viewContext());
        for (const auto& snippet : repository.results().value())
            codes += snippet->code();
        return codes;
    }
};

TEST_F(LibraryScreens, ANewSnippetIsTypedIntoSavedAndThereAfterwards) {
    open();
    createByForm(QStringLiteral("Greeting"), QStringLiteral("python"));
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_EQ(stored()[0]->language(), QStringLiteral("python"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Greeting - Quillet"));
    QTest::keyClicks(code(), QStringLiteral("print('hi')"));
    QTest::keyClick(code(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("print('hi')")});
}

TEST_F(LibraryScreens, TheFormTakesTheClipboardAndWantsNameAndLanguage) {
    open();
    QGuiApplication::clipboard()->setText(QStringLiteral("let a = 1"));
    click("Add");
    click("Save");
    auto* alert = window->findChild<platform::AlertController*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->accessibleDescription(),
              QStringLiteral("You need a title and language selected to create a snippet."));
    click("Okay");
    EXPECT_EQ(stored().size(), 0U);
    QTest::keyClick(named<QLineEdit>("Name"), Qt::Key_Escape);
    turn();
    EXPECT_EQ(window->findChild<SnippetDetailsViewController*>(), nullptr);

    click("Add");
    auto* copySwitch = window->findChild<QCheckBox*>();
    QTest::mouseClick(copySwitch, Qt::LeftButton, {}, QPoint(10, copySwitch->height() / 2));
    QTest::keyClicks(named<QLineEdit>("Name"), QStringLiteral("  ")); // two blanks are a name
    click("Language");
    QTest::keyClicks(named<QLineEdit>("Search"), QStringLiteral("SWIFT"));
    QTest::keyClick(named<QLineEdit>("Search"), Qt::Key_Return);
    turn();
    click("Save");
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_EQ(stored()[0]->code(), QStringLiteral("let a = 1"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return code()->hasFocus(); })) << "the next key goes into it";
}

TEST_F(LibraryScreens, TextGetsTheColoursOfItsLanguageAndTheme) {
    open();
    createByForm(QStringLiteral("Coloured"), QStringLiteral("swift"));
    QTest::keyClicks(code(), QStringLiteral("let a"));
    const auto formats = [&] { return code()->document()->firstBlock().layout()->formats(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !formats().isEmpty(); }, 20'000));
    EXPECT_EQ(formats()[0].length, 3);
    const QColor xcode = formats()[0].format.foreground().color();
    click("Theme, xcode");
    QTest::keyClicks(named<QLineEdit>("Search"), QStringLiteral("monokai-sublime"));
    QTest::keyClick(named<QLineEdit>("Search"), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !formats().isEmpty() && formats()[0].format.foreground().color() != xcode; }, 20'000));
    EXPECT_EQ(code()->palette().color(QPalette::Base), QColor(0x23, 0x24, 0x1F));
}

TEST_F(LibraryScreens, ClosingTheWindowSavesEvenTextThatHasNoSnippetYet) {
    open();
    code()->setFocus();
    QTest::keyClicks(code(), QStringLiteral("loose text"));
    EXPECT_TRUE(window->close());
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_TRUE(stored()[0]->title().startsWith(QStringLiteral("New Snippet - ")));
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("loose text")});
}

TEST_F(LibraryScreens, AnotherSnippetTakesThePlaceOfASavedOne) {
    open();
    createByForm(QStringLiteral("First"), QStringLiteral("swift"));
    QTest::keyClicks(code(), QStringLiteral("first text"));
    createByForm(QStringLiteral("Second"), QStringLiteral("swift"));
    EXPECT_EQ(code()->text(), QString());
    EXPECT_EQ(stored()[0]->code(), QStringLiteral("first text"));
    window->didSelect(stored()[0]);
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(code()->text(), QStringLiteral("first text"));
    const auto first = stored()[0];
    context().deleteObject(*first);
    window->didDelete(first);
    EXPECT_EQ(code()->text(), QString());
    EXPECT_TRUE(code()->placeholderText().startsWith(QStringLiteral("Enter text here")));
}

TEST_F(LibraryScreens, ATextThatNobodyTouchedHereDoesNotOverwriteANewerOne) {
    open();
    createByForm(QStringLiteral("Shared"), QStringLiteral("swift"));
    QTest::keyClicks(code(), QStringLiteral("old"));
    window->save();
    CoreDataStack other(directory);
    Repository<Snippet> theirs(other.viewContext());
    theirs.results().value().at(0)->setCode(QStringLiteral("newer"));
    other.save(SaveReason::AddedSnippet);
    ASSERT_TRUE(context().mergeChanges());
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("newer")});
}

TEST_F(LibraryScreens, WhatIsWrittenElsewhereIsShownAndMergedWithWhatIsTyped) {
    open();
    createByForm(QStringLiteral("Shared"), QStringLiteral("swift"));
    code()->insertPlainText(QStringLiteral("one\ntwo\nthree"));
    window->save();
    CoreDataStack other(directory);
    const auto theirs = Repository<Snippet>(other.viewContext()).results().value().at(0);
    theirs->setCode(QStringLiteral("zero\none\ntwo\nthree"));
    other.save(SaveReason::AddedSnippet);
    ASSERT_TRUE(context().mergeChanges());
    EXPECT_EQ(code()->text(), QStringLiteral("zero\none\ntwo\nthree"));
    EXPECT_FALSE(code()->document()->isModified());
    EXPECT_TRUE(code()->textCursor().atEnd());

    QTest::keyClicks(code(), QStringLiteral(" and typed"));
    theirs->setCode(QStringLiteral("changed\none\ntwo\nthree"));
    other.save(SaveReason::AddedSnippet);
    ASSERT_TRUE(context().mergeChanges());
    const QString merged = QStringLiteral("changed\none\ntwo\nthree and typed");
    EXPECT_EQ(code()->text(), merged);
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{merged});

    // The same line, and this window has not heard of it when it saves.
    ASSERT_TRUE(other.viewContext().mergeChanges());
    theirs->setCode(QStringLiteral("changed\none\ntwo\ntheirs"));
    other.save(SaveReason::AddedSnippet);
    QTest::keyClicks(code(), QStringLiteral(" here"));
    window->save();
    EXPECT_EQ(code()->text(), merged + QStringLiteral(" here"));
    EXPECT_EQ(codesOnDisk(), QStringList{merged + QStringLiteral(" here")});
    const auto segments = stored().at(0)->sortedSegments();
    ASSERT_EQ(segments.size(), 1U);
    EXPECT_TRUE(segments[0]->title().startsWith(QStringLiteral("Conflict - ")));
    EXPECT_EQ(segments[0]->code(), QStringLiteral("changed\none\ntwo\ntheirs"));
}

TEST_F(LibraryScreens, TheFormLeavesWhatItDidNotChange) {
    open();
    createByForm(QStringLiteral("Shared"), QStringLiteral("swift"));
    const auto snippet = stored().at(0);
    snippet->setNotes(QStringLiteral("one\ntwo"));
    window->save();
    window->findChild<SnippetViewController*>()->setSnippet(snippet);
    ASSERT_TRUE(waitForLoad());
    click("Edit Details");
    CoreDataStack other(directory);
    const auto theirs = Repository<Snippet>(other.viewContext()).results().value().at(0);
    theirs->setNotes(QStringLiteral("zero\none\ntwo"));
    theirs->setLanguage(QStringLiteral("python"));
    other.save(SaveReason::AddedSnippet);
    ASSERT_TRUE(context().mergeChanges());
    QTest::keyClicks(named<QLineEdit>("Name"), QStringLiteral(" name"));
    click("Save");
    EXPECT_EQ(snippet->title(), QStringLiteral("Shared name"));
    EXPECT_EQ(snippet->notes(), QStringLiteral("zero\none\ntwo"));
    EXPECT_EQ(snippet->language(), QStringLiteral("python"));
}

TEST_F(LibraryScreens, WhatIsTypedIntoASnippetThatWasDeletedElsewhereBringsItBack) {
    open();
    createByForm(QStringLiteral("Shared"), QStringLiteral("swift"));
    window->save();
    CoreDataStack other(directory);
    SnippetService(other).remove(*Repository<Snippet>(other.viewContext()).results().value().at(0));
    ASSERT_TRUE(context().mergeChanges());
    window->save();
    EXPECT_TRUE(codesOnDisk().isEmpty()) << "nobody typed anything, so the deletion stands";
    QTest::keyClicks(code(), QStringLiteral("typed"));
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("typed")});
}

TEST_F(LibraryScreens, ATextThatCannotBeReadIsNotShownAsEmptyAndNotOverwritten) {
    open();
    createByForm(QStringLiteral("Locked"), QStringLiteral("swift"));
    QTest::keyClicks(code(), QStringLiteral("kept"));
    window->save();
    window.reset();
    CoreDataStack& stack = CoreDataStack::shared();
    Repository<Snippet> repository(stack.viewContext());
    const auto snippet = repository.results().value().at(0);
    // Gives the loaded text up again, so that it has to be read.
    for (int i = 0; i < 3; ++i) {
        Snippet::create(QStringLiteral("big"), {}, QString(3'000'000, u'x'), QStringLiteral("swift"));
        stack.save(SaveReason::AddedSnippet);
    }
    auto lock =
        platform::SqliteConnection::open(storePath, platform::SqliteConnection::Access::Existing).value();
    ASSERT_TRUE(lock->run(QStringLiteral("BEGIN EXCLUSIVE")));
    open();
    window->didSelect(snippet);
    EXPECT_FALSE(code()->isEnabled());
    EXPECT_TRUE(code()->placeholderText().contains(QStringLiteral("cannot be read")));
    ASSERT_TRUE(lock->run(QStringLiteral("ROLLBACK")));
    window->save();
    window->didSelect(snippet);
    ASSERT_TRUE(waitForLoad());
    EXPECT_TRUE(code()->isEnabled());
    EXPECT_EQ(code()->text(), QStringLiteral("kept"));
}

TEST_F(LibraryScreens, HostileTextsAreShownAndSavedUnitForUnit) {
    const QString hostile =
        QString::fromUtf8("a\0b\r\nc\rd\n", 9) + QChar(char16_t{0xD800}) + QStringLiteral("\r\n");
    const auto snippet =
        Snippet::create(QStringLiteral("h"), {}, hostile, QStringLiteral("no such language"));
    open();
    window->didSelect(snippet);
    ASSERT_TRUE(waitForLoad());
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{hostile});
    QTest::keyClicks(code(), QStringLiteral("x"));
    window->save();
    EXPECT_EQ(codesOnDisk(), QStringList{u'x' + hostile});
}

TEST_F(LibraryScreens, APasteOfTwentyMegabytesIsKept) {
    const QString line = QStringLiteral("int value = 42; // a line of code that is pasted again and again\n");
    const QString big = line.repeated(20'000'000 / line.size());
    open();
    code()->setFocus();
    QGuiApplication::clipboard()->setText(big);
    QTest::keyClick(code(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(code()->text(), big);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(codesOnDisk(), QStringList{big});
}

TEST_F(LibraryScreens, ALibraryThatCannotBeOpenedSaysSoAndClosesOnlyOnRequest) {
    QDir().mkpath(root.filePath(QStringLiteral("Quillet")));
    QFile file(storePath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a database");
    file.close();
    open();
    const auto* banner = window->findChild<HealthBanner*>();
    EXPECT_TRUE(banner->isVisible());
    EXPECT_TRUE(banner->text().contains(QStringLiteral("could not be opened")))
        << banner->text().toStdString();
    code()->setFocus();
    QTest::keyClicks(code(), QStringLiteral("precious"));

    EXPECT_FALSE(window->close());
    EXPECT_FALSE(window->close());
    EXPECT_EQ(window->findChildren<platform::AlertController*>().size(), 1) << "asked once";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // stays: the focus is on what loses nothing
    turn();
    EXPECT_EQ(window->presentedViewController(), nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(code()->text(), QStringLiteral("precious"));
    EXPECT_FALSE(window->close());
    click("Quit Anyway");
    EXPECT_FALSE(window->isVisible());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "not a database");
}

TEST_F(LibraryScreens, ANarrowWindowShowsOneColumnAtATime) {
    open({390, 700});
    EXPECT_FALSE(code()->isVisible());
    createByForm(QStringLiteral("Narrow"), QStringLiteral("swift"));
    ASSERT_TRUE(code()->isVisible());
    QTest::keyClicks(code(), QStringLiteral("kept"));
    click("Back");
    EXPECT_FALSE(code()->isVisible());
    EXPECT_EQ(codesOnDisk(), QStringList{QStringLiteral("kept")});
    window->resize(1000, 700);
    EXPECT_TRUE(code()->isVisible());
}

} // namespace
