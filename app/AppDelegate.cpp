#include "app/AppDelegate.h"

#include "Quillet/core/UserSettings.h"
#include "platform/cloud/DefaultAccount.h"
#include "platform/cloud/RemoteNotifications.h"
#include "platform/screens/style/Style.h"

namespace quillet {

AppDelegate::AppDelegate()
    : m_coreDataStack(&CoreDataStack::shared()) {
    platform::applyStyle();
}

AppDelegate::~AppDelegate() {
    m_coreDataStack->save(SaveReason::AppTermination);
    defaultKeyValueStore().synchronize();
    m_coreDataStack->stopMirroring();
    // Nobody is in a save's way any more.
    if (m_coreDataStack->viewContext().hasChanges()) m_coreDataStack->saveContext();
}

void AppDelegate::didFinishLaunching() {
    platform::registerForRemoteNotifications();
    auto& container = m_coreDataStack->cloudKitContainer();
    m_scene.willConnect();
    m_coreDataStack->startMirroring(platform::defaultAccountReader(), platform::defaultStoreOpener(),
                                    defaultKeyValueStore());
    m_accountChanges =
        m_account.account().observeChanges([&container](const auto&) { container.noteAccountChange(); });
}

void AppDelegate::activate() {
    window().setWindowState(window().windowState() & ~Qt::WindowMinimized);
    window().show();
    window().raise();
    window().activateWindow();
}

} // namespace quillet
