#include "account/AccountWindow.h"
#include "account/TryConnection.h"
#include "platform/cloud/ServerEnvironment.h"
#include "platform/screens/style/Style.h"

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
    platform::unsetServerEnvironment();
    const account::SignIn signIn;
    account::TryConnection tryConnection(platform::PasswordFile::defaultPath());
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillet Account"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLET_VERSION));
    platform::applyStyle();
    account::AccountWindow window(signIn, std::ref(tryConnection));
    window.show();
    return QApplication::exec();
}
