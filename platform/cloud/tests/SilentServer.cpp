#include "platform/cloud/tests/SilentServer.h"

#include "platform/foundation/FatalError.h"

#include <arpa/inet.h>
#include <array>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace platform::testing {

namespace {

// "Authentication is not needed" and "ready for a query", as the protocol's messages.
constexpr std::array<char, 15> welcome = {'R', 0, 0, 0, 8, 0, 0, 0, 0, 'Z', 0, 0, 0, 5, 'I'};

} // namespace

SilentServer::SilentServer(Until until) {
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, 16) != 0 ||
        ::getsockname(m_listener, generic, &length) != 0)
        fatalError("no port to listen at");
    m_port = ntohs(address.sin_port);
    // The kernel takes connections by itself.
    if (until == Until::Ready) m_thread = std::jthread([this] { serve(); });
}

SilentServer::~SilentServer() {
    ::shutdown(m_listener, SHUT_RDWR); // which ends accept()
    if (m_thread.joinable()) m_thread.join();
    ::close(m_listener);
}

void SilentServer::serve() {
    std::vector<int> guests;
    for (int guest = 0; (guest = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        guests.push_back(guest);
        std::array<char, 1024> startup = {};
        if (::recv(guest, startup.data(), startup.size(), 0) <= 0) continue;
        if (::send(guest, welcome.data(), welcome.size(), MSG_NOSIGNAL) > 0) ++m_handshakes;
    }
    for (const int guest : guests)
        ::close(guest);
}

} // namespace platform::testing
