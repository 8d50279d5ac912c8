#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <vector>

namespace platform {

class NavigationBar;

// A stack of screens with a bar on top. The topmost is shown; the bar has its title and buttons, and a button
// back where there is a screen below. Alt+Left and the back key of a keyboard or mouse go back, too. Owns
// what is on the stack; main thread.
class NavigationController : public ViewController {
    Q_OBJECT

public:
    explicit NavigationController(std::unique_ptr<ViewController> root, QWidget* parent = nullptr);
    ~NavigationController() override;

    // From the bottom up.
    const std::vector<ViewController*>& viewControllers() const { return m_viewControllers; }

    ViewController* topViewController() const;

    void pushViewController(std::unique_ptr<ViewController> controller, Animated animated = Animated::Yes);
    // Nothing happens at the root.
    void popViewController(Animated animated = Animated::Yes);

    bool isNavigationBarHidden() const;
    void setNavigationBarHidden(bool isHidden);

    NavigationBar& navigationBar() { return *m_bar; }

private:
    NavigationBar* m_bar;
    std::vector<ViewController*> m_viewControllers;
};

} // namespace platform
