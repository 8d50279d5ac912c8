#pragma once

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"
#include "examples/editor/tests/TestFolder.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QTabWidget>

#include <optional>

namespace tessarine::editor {

// The editor's window on a screen that nobody sees, with settings of its own, as a person works with it.
class EditorTest : public ::testing::Test {
protected:
    EditorTest() {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settingsFolder.root());
        start();
    }

    void start() {
        m_window.reset();
        m_services.reset();
        m_services.emplace();
        m_window.emplace(*m_services);
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&*m_window));
    }

    EditorPage& page() { return *m_window->currentPage(); }

    TextView& view() { return page().textView(); }

    QString text() { return toQt(view().text()); }

    int pageCount() { return m_window->findChild<QTabWidget*>()->count(); }

    QString open(const QString& name, const QByteArray& bytes) {
        const QString path = m_folder.write(name, bytes);
        openPath(path);
        return path;
    }

    void openPath(const QString& path) {
        m_window->openFile(path);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !page().file().isLoading(); }));
    }

    void type(const QString& text) {
        page().view().setFocus();
        QTest::keyClicks(&page().view(), text);
    }

    // To whatever has the keyboard.
    static void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    // A question may have been in front, and on this screen nobody brings the window back.
    void goToText() {
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*m_window));
        page().view().setFocus();
    }

    void save() {
        goToText();
        press(Qt::Key_S, Qt::ControlModifier);
    }

    void saveAndWait() {
        save();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !page().file().isModified(); }));
    }

    // Presses a button of the question that is, or soon will be, on the screen.
    bool answer(const QString& label) {
        QMessageBox* box = nullptr;
        const auto isAsked = [this, &box] {
            for (QMessageBox* const each : m_window->findChildren<QMessageBox*>())
                if (each->isVisible()) box = each;
            return box != nullptr;
        };
        return QTest::qWaitFor(isAsked) && click(*box, label);
    }

    // Presses a button inside of a widget.
    static bool click(QWidget& parent, const QString& labelOrName) {
        for (auto* const button : parent.findChildren<QAbstractButton*>())
            if (button->isVisible() &&
                (button->text() == labelOrName || button->objectName() == labelOrName)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return true;
            }
        return false;
    }

    // An entry of a menu.
    void choose(const QString& menuTitle, const QString& label) {
        for (const auto* const menu : m_window->findChildren<QMenu*>())
            for (auto* const action : menu->actions())
                if (menu->title().remove(u'&') == menuTitle && action->text().remove(u'&') == label)
                    return action->trigger();
        FAIL() << "no entry " << label.toStdString();
    }

    TestFolder m_settingsFolder;
    TestFolder m_folder;
    std::optional<EditorServices> m_services;
    std::optional<EditorWindow> m_window; // goes before the services
};

} // namespace tessarine::editor
