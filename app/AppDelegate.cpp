#include "app/AppDelegate.h"

#include "Quillet/core/UserSettings.h"

#include <QtWidgets/QApplication>

namespace quillet {

AppDelegate::AppDelegate()
    : m_coreDataStack(&CoreDataStack::shared()) {
    QApplication::setStyle(QStringLiteral("fusion"));
}

AppDelegate::~AppDelegate() {
    m_coreDataStack->save(SaveReason::AppTermination);
    defaultKeyValueStore().synchronize();
}

void AppDelegate::didFinishLaunching() {
    m_coreDataStack->cloudKitContainer();
    m_scene.willConnect();
}

void AppDelegate::activate() {
    window().setWindowState(window().windowState() & ~Qt::WindowMinimized);
    window().show();
    window().raise();
    window().activateWindow();
}

} // namespace quillet
