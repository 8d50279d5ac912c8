#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/screens/SnippetRootViewController.h"

#include <memory>

namespace quillet {

// Builds the program in its order and ends it. One for the life of the process; main thread.
class AppDelegate {
public:
    AppDelegate();
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    // Builds the store, then the window with its columns, and shows it.
    void didFinishLaunching();
    void activate();

    SnippetRootViewController& window() { return *m_window; }

private:
    CoreDataStack* m_coreDataStack;
    std::unique_ptr<SnippetRootViewController> m_window;
};

} // namespace quillet
