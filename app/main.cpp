#include "Quillet/core/DataDirectory.h"
#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "platform/foundation/Log.h"

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillet"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLET_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quillet"));

    quillet::SingleInstance instance(quillet::dataDirectory());
    if (instance.isAnotherRunning()) {
        platform::logLine(QStringLiteral("⚠️ Quillet is running already; its window was raised."));
        return 0;
    }
    quillet::AppDelegate delegate;
    delegate.didFinishLaunching();
    instance.setOnActivate([&delegate] { delegate.activate(); });
    return QApplication::exec();
}
