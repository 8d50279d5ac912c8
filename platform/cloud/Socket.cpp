#include "platform/cloud/Socket.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace platform {

Socket::Socket(int descriptor)
    : m_descriptor(descriptor < 0 ? -1 : ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)) {}

Socket::~Socket() {
    if (m_descriptor >= 0) ::close(m_descriptor);
}

Socket::Socket(Socket&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

Socket& Socket::operator=(Socket&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

void Socket::shutDown() const {
    if (m_descriptor >= 0) ::shutdown(m_descriptor, SHUT_RDWR);
}

bool Socket::isAtEnd() const {
    char byte = 0;
    const auto got = ::recv(m_descriptor, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return got == 0 || (got < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR);
}

} // namespace platform
