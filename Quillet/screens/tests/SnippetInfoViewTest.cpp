#include "Quillet/screens/info/SnippetInfoView.h"

#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/info/InternalSegmentView.h"
#include "Quillet/screens/info/NotesLabel.h"
#include "Quillet/screens/info/TagChip.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

using namespace quillet;

namespace {

class InfoPanel : public TemporaryLibrary {
protected:
    InfoPanel() {
        snippet = Snippet::create(QStringLiteral("Sorting"), QStringLiteral("some notes"), {},
                                  QStringLiteral("swift"));
        model->snippet.set(snippet);
    }

    void open() {
        panel = std::make_unique<SnippetInfoView>(
            model, SnippetInfoCallbacks{
                       .onEditTags = [this] { ++tagsAskedFor; },
                       .onAddSegment = [this] { return added; },
                       .onSelectSegment = [this](const auto& segment) { selected.push_back(segment); },
                       .onDeleteSegment = [this](const auto& segment) { deleted.push_back(segment); },
                       .onRenameSegment = [this](const auto& segment) { renamed.push_back(segment); }});
        panel->resize(500, 200);
        panel->show();
        panel->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
    }

    std::shared_ptr<Segment> segment(const QString& title, const std::optional<QDateTime>& date) {
        auto made = std::make_shared<Segment>();
        context().insert(made);
        if (!title.isNull()) made->setTitle(title);
        made->setValue(Segment::CreationDate, date ? QVariant(*date) : QVariant());
        made->setToOne(Segment::OfSnippet, snippet.get());
        return made;
    }

    // As they lie in their row, the active one in brackets.
    QStringList chips() const {
        std::map<int, QString> byPlace;
        turn();
        for (auto* chip : panel->findChildren<SegmentChip*>())
            if (chip->isVisible())
                byPlace[chip->x()] = chip->isChecked() ? u'[' + chip->title() + u']' : chip->title();
        QStringList titles;
        for (const auto& [place, title] : byPlace)
            titles += title;
        return titles;
    }

    std::vector<TagChip*> tags() const {
        turn();
        std::vector<TagChip*> shown;
        for (auto* chip : panel->findChildren<TagChip*>())
            if (chip->isVisible()) shown.push_back(chip);
        return shown;
    }

    // Of dates one after the other.
    std::vector<std::shared_ptr<Segment>> segments(int count, const QString& title) {
        const QDateTime day = QDateTime::currentDateTime();
        std::vector<std::shared_ptr<Segment>> made;
        for (int each = 0; each < count; ++each)
            made.push_back(segment(title.arg(each), day.addSecs(each)));
        return made;
    }

    QWidget& chip(const QString& title) const { return driver::waitFor<SegmentChip>(*panel, title); }

    // Whether all of it is between the row's sides, and not below the button over its end.
    static bool isSeen(const QWidget& chip) { return chip.visibleRegion().boundingRect() == chip.rect(); }

    static QScrollBar& barOf(const QWidget& chip) {
        return *static_cast<QScrollArea*>(chip.parentWidget()->parentWidget()->parentWidget())
                    ->horizontalScrollBar();
    }

    static void save() { CoreDataStack::shared().save(SaveReason::EditedItem); }

    std::shared_ptr<Snippet> snippet;
    std::shared_ptr<SnippetInfoViewModel> model = std::make_shared<SnippetInfoViewModel>();
    std::unique_ptr<SnippetInfoView> panel;
    std::shared_ptr<Segment> added;
    std::vector<std::shared_ptr<Segment>> selected;
    std::vector<std::shared_ptr<Segment>> deleted;
    std::vector<std::shared_ptr<Segment>> renamed;
    int tagsAskedFor = 0;
};

TEST_F(InfoPanel, SegmentsLieByDateThenTitleAndThoseWithoutADateLast) {
    const QDateTime day = QDateTime::fromString(QStringLiteral("2024-05-01T10:00:00Z"), Qt::ISODate);
    segment(QStringLiteral("none"), std::nullopt);
    segment(QStringLiteral("b"), day);
    segment(QStringLiteral("a"), day);
    segment(QString(), day.addDays(-1));
    open();
    EXPECT_EQ(chips(), (QStringList{QStringLiteral("[Code]"), QStringLiteral("Code"), QStringLiteral("a"),
                                    QStringLiteral("b"), QStringLiteral("none")}));
}

TEST_F(InfoPanel, OneChipIsActiveAlsoAfterADeletionAndAnotherSnippet) {
    const QDateTime day = QDateTime::currentDateTime();
    const auto first = segment(QStringLiteral("first"), day);
    const auto second = segment(QStringLiteral("second"), day.addSecs(1));
    open();
    driver::click(*panel, QStringLiteral("second"));
    EXPECT_EQ(panel->activeSegment(), second);
    EXPECT_EQ(selected, std::vector{second});
    EXPECT_EQ(chips(),
              (QStringList{QStringLiteral("Code"), QStringLiteral("first"), QStringLiteral("[second]")}));

    first->setTitle(QStringLiteral("renamed"));
    second->setToOne(Segment::OfSnippet, nullptr);
    context().deleteObject(*second);
    save();
    EXPECT_EQ(panel->activeSegment(), second) << "the editor still shows it";
    EXPECT_EQ(chips(), (QStringList{QStringLiteral("Code"), QStringLiteral("renamed")}));

    added = first;
    driver::click(*panel, QStringLiteral("Add Segment"));
    EXPECT_EQ(chips(), (QStringList{QStringLiteral("Code"), QStringLiteral("[renamed]")}));
    ::testing::internal::CaptureStdout();
    model->snippet.set(snippet);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "⚠️ New snippet, clearing data\n");
    EXPECT_EQ(panel->activeSegment(), nullptr);
    EXPECT_EQ(chips(), (QStringList{QStringLiteral("[Code]"), QStringLiteral("renamed")}));
}

TEST_F(InfoPanel, TagsFollowTheLibraryWhateverTheirColour) {
    const auto red = Tag::create(QStringLiteral("red"), 6, {});
    const auto strange = Tag::create(QStringLiteral("<b>strange</b>"), 99, {});
    const auto negative = Tag::create(QStringLiteral("negative"), -1, {});
    for (const auto& tag : {red, strange, negative})
        snippet->addToMany(Snippet::Tags, *tag);
    open();
    ASSERT_EQ(tags().size(), 3U);
    std::map<QString, TagChip*> byTitle;
    for (auto* chip : tags())
        byTitle[chip->text()] = chip;
    EXPECT_EQ(byTitle.at(red->title())->accessibleDescription(), QStringLiteral("Red"));
    EXPECT_EQ(byTitle.at(strange->title())->accessibleDescription(), QString());
    const auto pixel = [&](const std::shared_ptr<Tag>& tag, int y) {
        auto* chip = byTitle.at(tag->title());
        return chip->grab().toImage().pixelColor(chip->width() / 2, y);
    };
    const auto edge = [&](const auto& tag) { return pixel(tag, 4); };
    const auto ground = [&](const auto& tag) { return pixel(tag, 0); };
    EXPECT_EQ(edge(red), platform::color(platform::Asset::SystemRed));
    EXPECT_EQ(edge(strange), ground(strange)) << "no border";
    EXPECT_EQ(edge(negative), ground(negative));

    snippet->removeFromMany(Snippet::Tags, *red);
    negative->setValue(Tag::Title, QStringLiteral("positive"));
    negative->setValue(Tag::ColorIndex, 0);
    save();
    ASSERT_EQ(tags().size(), 2U);
    EXPECT_EQ(byTitle.at(QStringLiteral("negative"))->text(), QStringLiteral("positive")) << "the same chip";
    driver::click(*panel, QStringLiteral("Tags"));
    EXPECT_EQ(tagsAskedFor, 1);
    driver::click(*panel, QStringLiteral("Tags and Segments"));
    EXPECT_FALSE(panel->showTagsAndSegments());
    EXPECT_TRUE(QTest::qWaitFor([&] { return tags().empty() && chips().empty(); }));
    driver::click(*panel, QStringLiteral("Tags and Segments"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tags().size() == 2U && isSeen(*tags().front()); }));
}

TEST_F(InfoPanel, TitleAndNotesFollowAndStaySmall) {
    open();
    auto* notes = panel->findChild<NotesLabel*>();
    const int oneLine = notes->height();
    const int panelHeight = panel->sizeHint().height();
    snippet->setTitle(QStringLiteral("Sorting &\nsearching"));
    snippet->setNotes(QStringLiteral("<b>Not bold</b>, but many words. ").repeated(500));
    save();
    turn();
    EXPECT_NE(driver::find<QLabel>(*panel, snippet->title()), nullptr);
    EXPECT_GT(notes->height(), oneLine);
    EXPECT_LT(panel->heightForWidth(500), panelHeight + 64);
    EXPECT_TRUE(notes->toolTip().contains(QStringLiteral("&lt;b&gt;Not")));
    snippet->setNotes(std::nullopt);
    save();
    EXPECT_FALSE(notes->isVisible());
    model->snippet.set(nullptr);
    EXPECT_TRUE(chips().empty());
    EXPECT_EQ(driver::find<QLabel>(*panel, snippet->title()), nullptr);
}

TEST_F(InfoPanel, TheKeyboardMovesSelectsAndOpensTheMenu) {
    const auto made = segments(2, QStringLiteral("R&D %1"));
    open();
    chip(QStringLiteral("Code")).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&chip(QStringLiteral("Code")), Qt::Key_Right);
    EXPECT_TRUE(chip(QStringLiteral("R&D 0")).hasFocus());
    EXPECT_TRUE(selected.empty()) << "moving selects nothing";
    QTest::keyClick(&chip(QStringLiteral("R&D 0")), Qt::Key_Return);
    QTest::keyClick(&chip(QStringLiteral("R&D 0")), Qt::Key_End);
    QTest::keyClick(&chip(QStringLiteral("R&D 1")), Qt::Key_Space);
    QTest::keyClick(&chip(QStringLiteral("R&D 1")), Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(selected, made);
    QTest::keyClick(&chip(QStringLiteral("R&D 1")), Qt::Key_Backtab, Qt::ShiftModifier);
    for (auto* each : panel->findChildren<SegmentChip*>())
        EXPECT_FALSE(each->hasFocus()) << "a row is one stop";

    QTest::keyClick(&chip(QStringLiteral("R&D 1")), Qt::Key_Menu);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(driver::titlesOf(*menu),
              (QStringList{QStringLiteral("Delete Segment"), QStringLiteral("Rename Segment")}));
    const auto picture = [&](int entry) {
        return menu->actions().at(entry)->icon().pixmap(20, 20).toImage();
    };
    EXPECT_FALSE(picture(0).isNull());
    EXPECT_EQ(picture(0), picture(1));
    driver::choose(*menu, QStringLiteral("Rename Segment"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return renamed == std::vector{made[1]}; }));
    EXPECT_TRUE(deleted.empty());
    EXPECT_EQ(panel->activeSegment(), made[1]);
}

TEST_F(InfoPanel, ChangesElsewhereLeaveScrollPositionAndFocus) {
    const auto made = segments(30, QStringLiteral("Segment %1"));
    open();
    auto& last = chip(QStringLiteral("Segment 29"));
    EXPECT_FALSE(isSeen(last));
    last.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isSeen(last));
    const int place = barOf(last).value();
    EXPECT_EQ(last.parentWidget()->width() - last.geometry().right() - 1, 60);
    made[28]->setTitle(QStringLiteral("Another name"));
    made[29]->setValue(Segment::CreationDate, made[28]->creationDate()->addMSecs(1));
    save();
    turn();
    EXPECT_TRUE(last.hasFocus());
    EXPECT_NEAR(barOf(last).value(), place, 40) << "as far as the new name is longer";

    made[29]->setToOne(Segment::OfSnippet, nullptr);
    context().deleteObject(*made[29]);
    save();
    EXPECT_TRUE(chip(QStringLiteral("Another name")).hasFocus()) << "its neighbour";

    model->snippet.set(Snippet::create(QStringLiteral("Other"), {}, {}, QStringLiteral("swift")));
    EXPECT_EQ(chips(), QStringList{QStringLiteral("[Code]")});
    EXPECT_TRUE(isSeen(chip(QStringLiteral("Code"))));
}

TEST_F(InfoPanel, ANewSegmentIsBroughtIntoViewAndAWheelScrolls) {
    const auto made = segments(30, QStringLiteral("Segment %1"));
    open();
    auto& code = chip(QStringLiteral("Code"));
    const QPointF at(10, 10);
    for (const QPoint turned : {QPoint(0, -120), QPoint(-120, 0)}) {
        const int before = barOf(code).value();
        QWheelEvent wheel(at, code.mapToGlobal(at), {}, turned, {}, {}, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel); // as those of a real wheel, which go to the widgets around
        qApp->notify(&code, &wheel);
        EXPECT_EQ(barOf(code).value(), before + 120);
    }
    added = segment(QStringLiteral("Fresh"), made[29]->creationDate()->addSecs(1));
    save();
    driver::click(*panel, QStringLiteral("Add Segment"));
    EXPECT_EQ(panel->activeSegment(), added);
    EXPECT_TRUE(isSeen(chip(QStringLiteral("Fresh"))));
    added = nullptr;
    driver::click(*panel, QStringLiteral("Add Segment"));
    EXPECT_EQ(panel->activeSegment(), nullptr);
    EXPECT_TRUE(isSeen(code));
}

TEST_F(InfoPanel, AFingerScrollsTapsAndHolds) {
    const auto made = segments(30, QStringLiteral("Segment %1"));
    open();
    static auto* device = QTest::createTouchDevice(); // lives as long as the program
    auto touch = QTest::touchEvent(panel->windowHandle(), device, false);
    const auto middleOf = [&](const QString& title) {
        auto& shown = chip(title);
        return shown.mapTo(panel.get(), shown.rect().center());
    };
    const QPoint start = middleOf(QStringLiteral("Segment 3"));
    touch.press(0, start).commit();
    for (int moved = 4; moved <= 40; moved += 4) { // not beyond the chip
        touch.move(0, start - QPoint(moved, 0)).commit();
        turn();
    }
    touch.release(0, start - QPoint(40, 0)).commit();
    auto& bar = barOf(chip(QStringLiteral("Code")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() > 20; }));
    EXPECT_TRUE(selected.empty()) << "a finger that scrolls selects nothing";
    auto* scroller = QScroller::scroller(
        bar.parentWidget()->parentWidget()->findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return scroller->state() == QScroller::Inactive; }));
    bar.setValue(0);

    touch.press(0, middleOf(QStringLiteral("Segment 3"))).commit();
    touch.release(0, middleOf(QStringLiteral("Segment 3"))).commit();
    EXPECT_EQ(selected, std::vector{made[3]});
    touch.press(0, middleOf(QStringLiteral("Segment 2"))).commit();
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    touch.release(0, middleOf(QStringLiteral("Segment 2"))).commit();
    EXPECT_EQ(selected, std::vector{made[3]}) << "a long press selects nothing";
}

TEST_F(InfoPanel, AssistiveToolsSeeRadioButtonsAndSelectByThem) {
    const auto made = segments(2, QStringLiteral("Segment %1"));
    open();
    auto* second = QAccessible::queryAccessibleInterface(&chip(QStringLiteral("Segment 1")));
    EXPECT_EQ(second->role(), QAccessible::RadioButton);
    EXPECT_FALSE(second->state().checked);
    second->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(second->state().checked);
    EXPECT_EQ(selected, std::vector{made[1]});
    EXPECT_EQ(panel->activeSegment(), made[1]);
}

TEST_F(InfoPanel, TagsThatDoNotFitScrollByTheKeyboard) {
    snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("tag"), 0, {}));
    open();
    auto& bar = barOf(*tags().front());
    auto& area = *bar.parentWidget()->parentWidget();
    EXPECT_EQ(area.focusPolicy(), Qt::NoFocus);
    for (qint16 color = 0; color < 10; ++color)
        snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("tag"), color, {}));
    save();
    turn();
    EXPECT_EQ(area.focusPolicy(), Qt::TabFocus);
    QTest::keyClick(&area, Qt::Key_Right);
    EXPECT_GT(bar.value(), 0);
}

} // namespace
