// A disk that is full, as far as this process can tell.
#pragma once

#include <csignal>
#include <sys/resource.h>

/// While one of these lives, no file of the process may grow beyond so many bytes.
class FullDisk
{
public:
    explicit FullDisk(rlim_t Bytes) : Handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &Before);
        const rlimit Small{Bytes, Before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &Small);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &Before);
        std::signal(SIGXFSZ, Handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit Before{};
    void (*Handler)(int);
};
