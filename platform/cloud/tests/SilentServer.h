#pragma once

#include <atomic>
#include <thread>

namespace platform::testing {

// A server on a loopback port that speaks the protocol up to a point, and then never says anything again.
class SilentServer {
public:
    enum class Until {
        Connected, // takes connections
        Ready      // lets anybody in without a password
    };
    explicit SilentServer(Until until);
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    int port() const { return m_port; }

    // How many were let in.
    int handshakes() const { return m_handshakes; }

private:
    void serve();

    int m_listener = -1;
    int m_port = 0;
    std::atomic<int> m_handshakes = 0;
    std::jthread m_thread;
};

} // namespace platform::testing
