#include "Kestrel/CEndSignals.h"
#include "Kestrel/GuiThread.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array listSignal{ SIGTERM, SIGINT, SIGHUP };
constexpr int nReadEnd = 0;
constexpr int nWriteEnd = 1;

// Opened before the first handler is installed, and never closed: a handler may still run on another thread
// while an object ends.
std::array<int, 2> listPipe{ -1, -1 };
std::array<struct sigaction, listSignal.size()> listFormer{};

// On any thread, at any moment: calls nothing but what a handler may call. A full pipe has been told enough.
extern "C" void HandleEndSignal(int)
{
    const int nError = errno;
    const char chAny = 0;
    [[maybe_unused]] const ssize_t nWritten = write(listPipe[nWriteEnd], &chAny, 1);
    errno = nError;
}

void Drain()
{
    std::array<char, 16> listByte;
    while (read(listPipe[nReadEnd], listByte.data(), listByte.size()) > 0) { }
}

void OpenPipe()
{
    if (listPipe[nReadEnd] < 0 && pipe2(listPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        qFatal("no pipe for signals: %s", std::strerror(errno));
    }
    Drain();
}

void Install(int nSignal, struct sigaction& former)
{
    sigaction(nSignal, nullptr, &former);
    if (former.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action{};
    action.sa_handler = &HandleEndSignal;
    action.sa_flags = SA_RESTART; // a write of the list goes on
    sigemptyset(&action.sa_mask);
    sigaction(nSignal, &action, nullptr);
}

} // namespace

CEndSignals::CEndSignals()
{
    Q_ASSERT(GuiThread::IsCurrent());
    OpenPipe();
    auto* pNotifier = new QSocketNotifier(listPipe[nReadEnd], QSocketNotifier::Read, this);
    connect(pNotifier, &QSocketNotifier::activated, this, [this] {
        Drain();
        emit EndRequested();
    });
    for (std::size_t n = 0; n < listSignal.size(); ++n) {
        Install(listSignal[n], listFormer[n]);
    }
}

CEndSignals::~CEndSignals()
{
    for (std::size_t n = 0; n < listSignal.size(); ++n) {
        sigaction(listSignal[n], &listFormer[n], nullptr);
    }
}
