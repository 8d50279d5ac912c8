#pragma once

namespace platform {

// A file descriptor of a socket, ours alone: a duplicate of one that somebody else may close, or none.
class Socket {
public:
    Socket() = default;
    // Makes the duplicate; none where `descriptor` is none.
    explicit Socket(int descriptor);
    ~Socket();
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&& other) noexcept;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    int descriptor() const { return m_descriptor; } // -1 for none

    // Ends the conversation, also for the duplicates: whoever waits for the other side sees its end.
    void shutDown() const;
    // Whether the other side has ended it, and all it said before has been read.
    bool isAtEnd() const;

private:
    int m_descriptor = -1;
};

} // namespace platform
