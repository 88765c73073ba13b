#pragma once

#include <csignal>
#include <sys/resource.h>

namespace qor::test {

/// While it lives no file grows beyond a few bytes: the disk is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes = 100) {
        ::getrlimit(RLIMIT_FSIZE, &m_Before);
        m_Handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{bytes, m_Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_Handler);
    }

private:
    rlimit m_Before{};
    void (*m_Handler)(int) = nullptr;
};

} // namespace qor::test
