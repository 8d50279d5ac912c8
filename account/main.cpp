#include "account/AccountWindow.h"
#include "account/TryConnection.h"
#include "platform/cloud/ServerEnvironment.h"
#include "platform/screens/style/Style.h"

#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
    platform::unsetServerEnvironment();
    const account::SignIn signIn;
    account::TryConnection tryConnection(platform::PasswordFile::defaultPath());
    constexpr char desktopName[] = "app.quillet.Quillet.Account";
    qputenv("RESOURCE_NAME", desktopName); // the window's class on X11
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillet Account"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLET_VERSION));
    QApplication::setDesktopFileName(QString::fromLatin1(desktopName));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("app.quillet.Quillet")));
    platform::applyStyle();
    account::AccountWindow window(signIn, std::ref(tryConnection));
    window.show();
    qunsetenv("RESOURCE_NAME"); // what is started from here on has windows of its own
    return QApplication::exec();
}
