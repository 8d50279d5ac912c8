#pragma once

#include "platform/cloud/Socket.h"

#include <chrono>
#include <mutex>
#include <optional>
#include <set>

namespace platform {

// Finds the socket of a connection while it is being opened, when the library that opens it does not tell:
// the one socket of this process to the server's port, or Unix socket, that was not there before. One at a
// time in the whole process.
class OpeningSocket {
public:
    // Of a server at this port, of whatever host, for what is opened from now on. Waits for its turn; nothing
    // where that has not come by the limit.
    static std::optional<OpeningSocket> await(int port, std::chrono::steady_clock::time_point limit);

    // None where it is not connected yet. Any thread.
    Socket find() const;

private:
    OpeningSocket(std::unique_lock<std::timed_mutex> turn, int port);

    std::unique_lock<std::timed_mutex> m_turn;
    int m_port;
    std::set<unsigned long> m_before; // inode numbers, which unlike descriptors are not used again
};

} // namespace platform
