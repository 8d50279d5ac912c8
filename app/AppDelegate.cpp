#include "app/AppDelegate.h"

#include "platform/screens/DesktopAppearance.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

namespace quillet {

namespace {

constexpr QSize preferredWindowSize(1120, 760);

} // namespace

AppDelegate::AppDelegate()
    : m_coreDataStack(&CoreDataStack::shared()) {
    QApplication::setStyle(QStringLiteral("fusion"));
    platform::applyPalette();
}

AppDelegate::~AppDelegate() {
    m_coreDataStack->save(SaveReason::AppTermination);
}

void AppDelegate::didFinishLaunching() {
    m_coreDataStack->viewContext();
    m_window = std::make_unique<SnippetRootViewController>();
    m_window->resize(preferredWindowSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    m_window->show();
    // What is on screen reaches the store also when the session ends instead of the window.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, m_window.get(),
                     &SnippetRootViewController::save, Qt::DirectConnection);
}

void AppDelegate::activate() {
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

} // namespace quillet
