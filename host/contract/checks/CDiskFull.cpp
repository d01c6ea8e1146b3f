#include "contract/checks/CDiskFull.h"

#include <csignal>

CDiskFull::CDiskFull()
{
    std::signal(SIGXFSZ, SIG_IGN); // the write then fails instead
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit none = before;
    none.rlim_cur = 0;
    setrlimit(RLIMIT_FSIZE, &none);
}

CDiskFull::~CDiskFull()
{
    setrlimit(RLIMIT_FSIZE, &before);
}
