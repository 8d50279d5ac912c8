#pragma once

#include "Quillet/screens/SnippetRootViewController.h"

#include <QtCore/QObject>

#include <memory>

namespace quillet {

// The life of the one window: makes it where the last session had it, and saves what is on screen and where
// that is when the window leaves the screen or the session ends. Main thread.
class SceneDelegate : public QObject {
    Q_OBJECT

public:
    // Starts the migrator's check, makes the window with its columns and shows it.
    void willConnect();

    SnippetRootViewController& window() { return *m_window; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void didEnterBackground();
    void placeWindow();
    void rememberPlace() const;

    std::unique_ptr<SnippetRootViewController> m_window;
};

} // namespace quillet
