#include "Quillet/core/DataDirectory.h"
#include "app/AppDelegate.h"
#include "app/DesktopApplication.h"
#include "app/SingleInstance.h"
#include "app/TerminationSignals.h"
#include "platform/cloud/ServerEnvironment.h"
#include "platform/foundation/Log.h"

#include <QtWidgets/QApplication>

#include <csignal>

int main(int argc, char** argv) {
    // Whoever reads the log may go away; that must not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    platform::unsetServerEnvironment();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillet"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLET_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("app.quillet.Quillet"));

    quillet::SingleInstance instance(quillet::dataDirectory());
    if (instance.isAnotherRunning()) {
        platform::logLine(QStringLiteral("⚠️ Quillet is running already; its window was raised."));
        return 0;
    }
    quillet::AppDelegate delegate;
    delegate.didFinishLaunching();
    instance.setOnActivate([&delegate] { delegate.activate(); });
    const quillet::DesktopApplication desktopApplication([&delegate] { delegate.activate(); });
    const quillet::TerminationSignals termination([&delegate] {
        delegate.save();
        QApplication::quit();
    });
    return QApplication::exec();
}
