#include "Quillet/core/DataDirectory.h"
#include "app/AppDelegate.h"
#include "app/DesktopApplication.h"
#include "app/SingleInstance.h"
#include "app/TerminationSignals.h"
#include "platform/cloud/ServerEnvironment.h"
#include "platform/foundation/Log.h"

#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <csignal>

int main(int argc, char** argv) {
    // Whoever reads the log may go away; that must not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    platform::unsetServerEnvironment();
    qputenv("RESOURCE_NAME", quillet::desktopName); // the window's class on X11
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillet"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLET_VERSION));
    QApplication::setDesktopFileName(QString::fromLatin1(quillet::desktopName));
    QApplication::setWindowIcon(QIcon::fromTheme(QString::fromLatin1(quillet::desktopName)));

    quillet::SingleInstance instance(quillet::dataDirectory());
    if (instance.isAnotherRunning()) {
        platform::logLine(QStringLiteral("⚠️ Quillet is running already; its window was raised."));
        return 0;
    }
    quillet::AppDelegate delegate;
    delegate.didFinishLaunching();
    qunsetenv("RESOURCE_NAME"); // what is started from here on has windows of its own
    instance.setOnActivate([&delegate] { delegate.activate(); });
    const quillet::DesktopApplication desktopApplication([&delegate] { delegate.activate(); });
    const quillet::TerminationSignals termination([&delegate] {
        delegate.save();
        QApplication::quit();
    });
    return QApplication::exec();
}
