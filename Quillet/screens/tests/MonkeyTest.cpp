#include "Quillet/browsing/TagColors.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/SnippetRootViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "platform/screens/list/ListView.h"

#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenu>

#include <iostream>
#include <random>
#include <set>

using namespace quillet;

namespace {

constexpr int eventsARun = 500; // MONKEY_EVENTS asks for another number

// A user without a plan, who works on every screen by real events, beside another device that edits the same
// library. Whatever text was on screen last has to be in the library afterwards.
class Monkey : public TemporaryLibrary, public ::testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override {
        qputenv("PATH", root.path().toUtf8()); // nothing is started from here
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        QApplication::setEffectEnabled(Qt::UI_General, false);
        for (int i = 0; i < 8; ++i) {
            auto snippet =
                Snippet::create(QStringLiteral("snippet %1").arg(i), {},
                                QStringLiteral("let value%1 = \"text\"\n").arg(i).repeated(1 + i * i * 20),
                                i % 2 ? QStringLiteral("swift") : QStringLiteral("python"));
            if (i % 3 == 0) addSegment(*snippet);
        }
        Tag::create(QStringLiteral("red"), 6, {});
        Folder::create(QStringLiteral("work"), {});
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        m_changes = context().onChange([this](const platform::ContextChanges& changes) {
            for (const auto& object : changes.deleted)
                m_deleted.insert(object->objectID());
        });
        m_other = std::make_unique<CoreDataStack>(directory);
        m_window = SnippetRootViewController::create();
        m_window->resize(1000, 700);
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    static void addSegment(Snippet& snippet) {
        const auto segment = std::make_shared<Segment>();
        context().insert(segment);
        segment->setTitle(QStringLiteral("part"));
        segment->setCode(QStringLiteral("part of it"));
        segment->setToOne(Segment::OfSnippet, &snippet);
    }

    SnippetViewController& editor() const { return *m_window->findChild<SnippetViewController*>(); }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    template <typename T>
    T pick(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
    }

    QWindow* target() const {
        if (auto* popup = QApplication::activePopupWidget()) return popup->windowHandle();
        return m_window->windowHandle();
    }

    // A press may take the window away in which it was made.
    void click(QPoint at, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mousePress(target(), button, {}, at);
        QTest::mouseRelease(target(), button, {}, at);
    }

    void strike(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyPress(target(), key, modifiers);
        QTest::keyRelease(target(), key, modifiers);
    }

    void clickSomething() {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            const auto actions = menu->actions();
            click(menu->actionGeometry(actions[below(static_cast<int>(actions.size()))]).center());
            return;
        }
        std::vector<QPoint> places;
        for (auto* button : m_window->findChildren<QAbstractButton*>())
            if (button->isVisible()) places.push_back(button->mapTo(m_window.get(), button->rect().center()));
        for (auto* list : m_window->findChildren<platform::ListView*>())
            if (list->isVisible())
                for (int y = 20; y < list->height(); y += 44)
                    places.push_back(list->mapTo(m_window.get(), QPoint(list->width() / 2, y)));
        places.emplace_back(below(m_window->width()), below(m_window->height()));
        click(pick(places), below(12) == 0 ? Qt::RightButton : Qt::LeftButton);
    }

    void type() {
        QString typed = QStringLiteral(" t%1 ").arg(++m_tokens);
        for (const QChar letter : typed)
            strike(static_cast<Qt::Key>(letter.toUpper().unicode()));
    }

    void pressKey() {
        using Press = std::pair<Qt::Key, Qt::KeyboardModifiers>;
        static const std::vector<Press> presses{{Qt::Key_Return, {}},
                                                {Qt::Key_Escape, {}},
                                                {Qt::Key_Tab, {}},
                                                {Qt::Key_Backtab, Qt::ShiftModifier},
                                                {Qt::Key_Backspace, {}},
                                                {Qt::Key_Delete, {}},
                                                {Qt::Key_Up, {}},
                                                {Qt::Key_Down, {}},
                                                {Qt::Key_Left, {}},
                                                {Qt::Key_Right, Qt::ShiftModifier},
                                                {Qt::Key_Home, {}},
                                                {Qt::Key_End, Qt::ControlModifier},
                                                {Qt::Key_Space, {}},
                                                {Qt::Key_Menu, {}},
                                                {Qt::Key_F6, {}},
                                                {Qt::Key_F3, {}},
                                                {Qt::Key_Z, Qt::ControlModifier},
                                                {Qt::Key_S, Qt::ControlModifier},
                                                {Qt::Key_F, Qt::ControlModifier},
                                                {Qt::Key_N, Qt::ControlModifier},
                                                {Qt::Key_V, Qt::ControlModifier},
                                                {Qt::Key_X, Qt::ControlModifier},
                                                {Qt::Key_Plus, Qt::ControlModifier},
                                                {Qt::Key_Comma, Qt::ControlModifier},
                                                {Qt::Key_Left, Qt::AltModifier}};
        const auto [key, modifiers] = pick(presses);
        strike(key, modifiers);
    }

    void editText() {
        auto& text = editor().textView();
        if (text.isVisible() && !m_window->presentedViewController())
            click(text.viewport()->mapTo(m_window.get(), QPoint(40, 20 + below(200))));
        type();
    }

    void turnWheel() {
        const QPointF at(below(m_window->width()), below(m_window->height()));
        const auto modifiers = below(4) ? Qt::NoModifier : Qt::ControlModifier;
        QWidget* under = m_window->childAt(at.toPoint());
        if (!under) return;
        QWheelEvent event(under->mapFrom(m_window.get(), at), m_window->mapToGlobal(at), {},
                          QPoint(0, below(2) ? 120 : -120), Qt::NoButton, modifiers, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(under, &event);
    }

    void resize() { m_window->resize(pick<QSize>({{390, 640}, {700, 500}, {1000, 700}, {1300, 900}})); }

    // What the other device does.
    void changeElsewhere() {
        auto& theirs = m_other->viewContext();
        if (!theirs.mergeChanges()) return;
        const auto objects =
            theirs.fetch({below(3) ? QStringLiteral("Snippet") : QStringLiteral("Segment"), {}, {}, {}});
        if (objects.empty()) return;
        const auto object = pick(objects);
        const bool isSnippet = object->entity().name == QStringLiteral("Snippet");
        if (below(10) == 0) {
            theirs.deleteObject(*object);
        } else {
            const qsizetype code = isSnippet ? qsizetype{Snippet::Code} : qsizetype{Segment::Code};
            object->setValue(code, QStringLiteral("e%1\n").arg(++m_tokens) + object->value(code).toString());
        }
        m_touched.insert(object->objectID());
        m_other->save(SaveReason::EditedItem);
        std::ignore = context().mergeChanges();
    }

    void step() {
        switch (below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            clickSomething();
            break;
        case 5:
        case 6:
        case 7:
            editText();
            break;
        case 8:
        case 9:
        case 10:
            pressKey();
            break;
        case 11:
            type();
            break;
        case 12:
            turnWheel();
            break;
        case 13:
            if (below(4) == 0) resize();
            break;
        case 14:
            if (below(3) == 0) changeElsewhere();
            break;
        default:
            QTest::qWait(below(40));
            break; // highlights land
        }
        QApplication::processEvents();
        // It could reach any file of the machine.
        for (auto* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QFileDialog*>(widget)) dialog->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Remembers what is on screen, and whose it is.
    void look() {
        auto& text = editor().textView();
        if (text.isReadOnly() || !text.isEnabled() || !editor().snippet()) return;
        const auto segment = editor().selectedSegment();
        const QUuid owner = segment ? segment->objectID() : editor().snippet()->objectID();
        m_seen[owner] = {text.text(), editor().snippet()->objectID()};
    }

    static QStringList tokensOf(const QString& text) {
        QStringList tokens;
        static const QRegularExpression token(QStringLiteral("\\bt\\d+\\b"));
        for (auto each = token.globalMatch(text); each.hasNext();)
            tokens += each.next().captured();
        return tokens;
    }

    void compareWithDisk() const {
        CoreDataStack reopened(directory);
        QHash<QUuid, QString> codes;
        QString all;
        for (const auto& object : reopened.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}))
            codes[object->objectID()] = static_cast<const Snippet&>(*object).code();
        for (const auto& object : reopened.viewContext().fetch({QStringLiteral("Segment"), {}, {}, {}}))
            codes[object->objectID()] = static_cast<const Segment&>(*object).code();
        for (const auto& code : codes)
            all += code + u'\n';
        for (const auto& [owner, seen] : m_seen) {
            const auto& [text, snippet] = seen;
            if (!codes.contains(owner)) {
                EXPECT_TRUE(m_deleted.contains(owner) || m_deleted.contains(snippet))
                    << "nobody deleted " << owner.toString().toStdString();
            } else if (m_touched.contains(owner)) {
                for (const auto& token : tokensOf(text))
                    EXPECT_TRUE(all.contains(token)) << token.toStdString() << " is lost";
            } else {
                EXPECT_EQ(codes[owner].toStdString(), text.toStdString());
            }
        }
    }

    struct Seen {
        QString text;
        QUuid snippet;
    };

    std::mt19937 m_random{GetParam()};
    std::unique_ptr<CoreDataStack> m_other;
    std::unique_ptr<SnippetRootViewController> m_window;
    platform::Subscription m_changes;
    std::map<QUuid, Seen> m_seen;
    std::set<QUuid> m_deleted;
    std::set<QUuid> m_touched; // by the other device
    int m_tokens = 0;
};

TEST_P(Monkey, LosesNoText) {
    const int wanted = qEnvironmentVariableIntValue("MONKEY_EVENTS");
    const int events = wanted > 0 ? wanted : eventsARun;
    for (int event = 0; event < events && !HasFailure(); ++event) {
        SCOPED_TRACE(testing::Message() << "event " << event << " of seed " << GetParam());
        step();
        look();
    }
    while (auto* popup = QApplication::activePopupWidget())
        popup->close();
    ASSERT_TRUE(m_window->close());
    m_window.reset();
    turn();
    EXPECT_FALSE(m_seen.empty()) << "it never came to the editor";
    compareWithDisk();
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, ::testing::Values(1U, 2U, 3U));

} // namespace
