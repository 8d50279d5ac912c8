#include "platform/cloud/OpeningSocket.h"

#include <filesystem>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace platform {

namespace {

std::timed_mutex& turns() {
    static std::timed_mutex mutex;
    return mutex;
}

// Of all that this process has open at about this moment.
template <typename Each>
void forEachDescriptor(const Each& each) {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", ignored))
        each(std::stoi(entry.path().filename().string()));
}

// 0 for what is no socket.
unsigned long inodeOf(int descriptor) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode) ? status.st_ino : 0;
}

// Whether the other side is the server's: its port, or a Unix socket with the port in its name.
bool isToPort(int descriptor, int port) {
    sockaddr_storage peer = {};
    socklen_t length = sizeof peer;
    if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &length) != 0) return false;
    if (peer.ss_family == AF_INET) return ntohs(reinterpret_cast<const sockaddr_in&>(peer).sin_port) == port;
    if (peer.ss_family == AF_INET6)
        return ntohs(reinterpret_cast<const sockaddr_in6&>(peer).sin6_port) == port;
    if (peer.ss_family != AF_UNIX) return false;
    const std::string path = reinterpret_cast<const sockaddr_un&>(peer).sun_path;
    return path.ends_with(".s.PGSQL." + std::to_string(port));
}

} // namespace

std::optional<OpeningSocket> OpeningSocket::await(int port, std::chrono::steady_clock::time_point limit) {
    std::unique_lock turn(turns(), limit);
    if (!turn) return {};
    return OpeningSocket(std::move(turn), port);
}

OpeningSocket::OpeningSocket(std::unique_lock<std::timed_mutex> turn, int port)
    : m_turn(std::move(turn))
    , m_port(port) {
    forEachDescriptor([this](int descriptor) { m_before.insert(inodeOf(descriptor)); });
}

Socket OpeningSocket::find() const {
    Socket found;
    forEachDescriptor([this, &found](int descriptor) {
        Socket candidate(descriptor); // before it is looked at, so that it cannot become another one
        if (!m_before.contains(inodeOf(candidate.descriptor())) && isToPort(candidate.descriptor(), m_port))
            found = std::move(candidate);
    });
    return found;
}

} // namespace platform
