#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/**
 * Makes the disk seem full: until the end of the scope no file of this process can grow beyond so many bytes.
 */
class KRFileSizeLimit
{
public:
    explicit KRFileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN); // else it would end the process
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~KRFileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    Q_DISABLE_COPY(KRFileSizeLimit)

private:
    rlimit m_old{};
};
