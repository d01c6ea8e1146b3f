#include "Kestrel/journal/CCrashFlush.h"
#include "Kestrel/GuiThread.h"

#include "journal/recording/CJournalWriter.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <ctime>

namespace {

constexpr std::array listSignal{ SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGQUIT };
constexpr int nSteps = 100;
constexpr timespec timeStep{ 0, 10'000'000 };
constexpr std::size_t nStackBytes = 64 * 1024;

std::atomic<const CJournalWriter*> g_pWriter{ nullptr };
std::array<struct sigaction, listSignal.size()> listFormer{};
alignas(std::max_align_t) std::array<char, nStackBytes> arrStack; ///< for a fault that has none left
stack_t formerStack{};

void Restore()
{
    for (std::size_t n = 0; n < listSignal.size(); ++n) {
        sigaction(listSignal[n], &listFormer[n], nullptr);
    }
}

// Calls nothing but what a handler of a signal may call.
void Await()
{
    const CJournalWriter* pWriter = g_pWriter;
    for (int n = 0; pWriter && !pWriter->IsWritingThread() && !pWriter->IsWritten() && n < nSteps; ++n) {
        nanosleep(&timeStep, nullptr);
    }
}

// On the thread that dies, at any moment. The signal comes again when it returns, and then ends the program as it would
// have without us.
extern "C" void HandleCrash(int nSignal)
{
    const int nError = errno;
    Await();
    Restore();
    raise(nSignal);
    errno = nError;
}

// Whoever wants to ignore such a signal goes on to do so: a shell does for what runs behind it.
void Install(int nSignal, struct sigaction& former)
{
    sigaction(nSignal, nullptr, &former);
    if (former.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action{};
    action.sa_handler = &HandleCrash;
    action.sa_flags = SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    sigaction(nSignal, &action, nullptr);
}

// Somebody calls exit() below us, as Qt does when the display has gone: the thread ends in the middle of its work.
void AwaitAtExit()
{
    [[maybe_unused]] static const int nRegistered = std::atexit(&Await);
}

} // namespace

CCrashFlush::CCrashFlush(const CJournalWriter& writer)
{
    Q_ASSERT(GuiThread::IsCurrent());
    g_pWriter = &writer;
    AwaitAtExit();
    stack_t stack{};
    stack.ss_sp = arrStack.data();
    stack.ss_size = arrStack.size();
    sigaltstack(&stack, &formerStack);
    for (std::size_t n = 0; n < listSignal.size(); ++n) {
        Install(listSignal[n], listFormer[n]);
    }
}

CCrashFlush::~CCrashFlush()
{
    Restore();
    sigaltstack(&formerStack, nullptr);
    g_pWriter = nullptr;
}
