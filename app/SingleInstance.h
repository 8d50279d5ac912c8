#pragma once

#include <QtCore/QLockFile>
#include <QtNetwork/QLocalServer>

#include <functional>
#include <memory>

namespace quillet {

// One running program a user and data directory: the first holds a lock file in the directory, every later
// one asks it to come to the front. Where the directory cannot be written there is no lock, and where nobody
// answers for the lock it counts for nothing: the program runs then, and the store bears a second one. Main
// thread.
class SingleInstance {
public:
    explicit SingleInstance(const QString& directory);

    // Whether another program holds the lock. It has then been asked to come to the front.
    bool isAnotherRunning() const { return m_isAnotherRunning; }

    // Called when a later start asks this program to come to the front.
    void setOnActivate(std::function<void()> handler) { m_onActivate = std::move(handler); }

private:
    void listen(const QString& name);

    std::unique_ptr<QLockFile> m_lock;
    QLocalServer m_server;
    std::function<void()> m_onActivate;
    bool m_isAnotherRunning = false;
};

} // namespace quillet
