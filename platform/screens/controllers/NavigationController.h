#pragma once

#include "platform/screens/controllers/ViewController.h"

#include <functional>
#include <optional>
#include <vector>

namespace platform {

class NavigationBar;

// A stack of screens with a bar on top. The topmost is shown; the bar has its title and buttons, and a button
// back where there is a screen below. Alt+Left and the back key of a keyboard or mouse go back, too. Owns
// what is on the stack; main thread.
class NavigationController : public ViewController {
    Q_OBJECT

public:
    // A root is required.
    explicit NavigationController(std::unique_ptr<ViewController> root, QWidget* parent = nullptr);
    ~NavigationController() override;

    // From the bottom up.
    const std::vector<ViewController*>& viewControllers() const { return m_viewControllers; }

    ViewController* topViewController() const;

    // A screen that comes or goes is there at once, with the focus; what moves is a picture.
    void pushViewController(std::unique_ptr<ViewController> controller, Animated animated = Animated::Yes);
    // Nothing happens at the root.
    void popViewController(Animated animated = Animated::Yes);

    bool isNavigationBarHidden() const;
    void setNavigationBarHidden(bool isHidden);

    NavigationBar& navigationBar() const { return *m_bar; }

    // Where a button at the root of the stack leads, named as what it leads to.
    struct WayBack {
        QString title;
        std::function<void()> go;
    };

    void setWayBackFromRoot(std::optional<WayBack> wayBack);

    // One screen back; nothing happens where there is none.
    void goBack();

    // One step back; at the root, the root's to answer.
    void cancelPresentation() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void put(ViewController& controller);
    void showBar();

    NavigationBar* m_bar;
    QWidget* m_stage; // what the screens fill
    std::vector<ViewController*> m_viewControllers;
    std::optional<WayBack> m_wayBack;
};

} // namespace platform
