#include "app/SceneDelegate.h"

#include "Halcyonix/Environment.h"
#include "Quillet/cloud/CoreDataMigrator.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/UserSettings.h"
#include "app/WindowGeometry.h"
#include "platform/screens/sharing/Mail.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindowStateChangeEvent>

namespace quillet {

namespace {

constexpr QSize preferredWindowSize(1120, 760);

} // namespace

void SceneDelegate::willConnect() {
    halcyonix::Environment::shared().primaryColor = platform::Asset::Accent;
    // Ahead of the lists, which so never show what the check deletes.
    CoreDataMigrator::shared().start();
    m_window = SnippetRootViewController::create();
    m_window->preferredDisplayMode = platform::SplitViewController::DisplayMode::OneBesideSecondary;
    m_window->installEventFilter(this);
    placeWindow();
    m_window->show();
    platform::canSendMail(); // the desktop's answer is there when something is first shared
    // A tablet's shell suspends the program as a whole.
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationSuspended || state == Qt::ApplicationHidden) didEnterBackground();
        if (state == Qt::ApplicationActive) CoreDataStack::shared().cloudKitContainer().noteForeground();
    });
    // The session may end instead of the window.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SceneDelegate::didEnterBackground,
            Qt::DirectConnection);
}

void SceneDelegate::placeWindow() {
    QList<QRect> screens;
    for (const auto* screen : QGuiApplication::screens()) // the main one is the first
        screens += screen->availableGeometry();
    const auto last = readWindowGeometry(windowGeometryPath());
    if (!last) return m_window->resize(preferredWindowSize.boundedTo(screens.value(0).size()));
    const WindowGeometry geometry = last->broughtBack(screens);
    m_window->setGeometry(geometry.normal);
    m_window->setPrimaryWidth(geometry.primaryWidth);
    if (geometry.isMaximized) m_window->setWindowState(Qt::WindowMaximized);
}

// Before it leaves the screen: a window that is gone has no place.
void SceneDelegate::rememberPlace() const {
    writeWindowGeometry(windowGeometryPath(), {.normal = m_window->normalGeometry(),
                                               .isMaximized = m_window->isMaximized(),
                                               .primaryWidth = m_window->primaryWidth()});
}

bool SceneDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_window.get() && event->type() == QEvent::Close) rememberPlace();
    if (event->type() == QEvent::WindowStateChange && m_window->isMinimized()) didEnterBackground();
    return QObject::eventFilter(watched, event);
}

void SceneDelegate::didEnterBackground() {
    m_window->save();
    rememberPlace();
    // Some settings wait for somebody to put them on the disk.
    defaultKeyValueStore().synchronize();
}

} // namespace quillet
