#pragma once

#include <QtCore/QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace shelf {

// While it lives, no file of this process grows above so many bytes: writes fail as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(qsizetype bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
};

} // namespace shelf
