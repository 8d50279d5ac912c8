#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "app/SceneDelegate.h"
#include "platform/cloud/AccountWatcher.h"

namespace quillet {

// Builds the program in its order, and saves the library when it ends. One for the life of the process; main
// thread.
class AppDelegate {
public:
    AppDelegate();
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    // Builds the store, then lets the scene make the window.
    void didFinishLaunching();
    void activate();

    // The editor's save, in place.
    void save() { window().save(); }

    SnippetRootViewController& window() { return m_scene.window(); }

private:
    CoreDataStack* m_coreDataStack;
    platform::AccountWatcher m_account;
    platform::Subscription m_accountChanges;
    SceneDelegate m_scene;
};

} // namespace quillet
