#pragma once

#include "platform/screens/tests/RecordingController.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

namespace platform {

// Screens with a log of what they are told. What moves is at once where it belongs, but where a test says
// otherwise.
class ScreensTest : public ::testing::Test {
protected:
    ScreensTest() { QApplication::setEffectEnabled(Qt::UI_General, false); }

    static void turn() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static void show(QWidget& window, QSize size = {1000, 700}) {
        window.resize(size);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        turn();
    }

    std::unique_ptr<RecordingController> screen(const char* title) {
        return std::make_unique<RecordingController>(QString::fromLatin1(title), log);
    }

    // What was noted since the last call.
    QString told() { return std::exchange(log, {}).join(QStringLiteral(", ")); }

    QStringList log;
};

} // namespace platform
