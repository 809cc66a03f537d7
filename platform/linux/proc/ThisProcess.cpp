#include "platform/ThisProcess.h"

#include "base/FaultStack.h"

#include <QFile>

#include <execinfo.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <tuple>

namespace vantro {

namespace {

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they tell more
using Frames = std::array<void*, 64>;

void writeText(std::string_view text)
{
    std::ignore = ::write(STDERR_FILENO, text.data(), text.size());
}

/// Calls only what is allowed in a signal's handler. The signal's usual effect follows.
void trace(int signal)
{
    const std::array<char, 2> digits{static_cast<char>('0' + signal / 10), static_cast<char>('0' + signal % 10)};
    writeText("vantro ends by signal ");
    writeText({digits.data(), digits.size()});
    writeText(" at:\n");
    Frames frames{};
    backtrace_symbols_fd(frames.data(), backtrace(frames.data(), static_cast<int>(frames.size())), STDERR_FILENO);
    std::ignore = std::raise(signal);
}

#endif

} // namespace

std::filesystem::path process::programFile()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

QByteArray process::bootIdentity()
{
    QFile file(QStringLiteral("/proc/sys/kernel/random/boot_id"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

void process::lowerPriorityOfThisThread()
{
    constexpr int background = 10;
    setpriority(PRIO_PROCESS, 0, background); // of this thread alone, against the standard
}

void process::giveMemoryBack()
{
    malloc_trim(0);
}

void process::traceFaults()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    Frames frames{};
    std::ignore = backtrace(frames.data(), static_cast<int>(frames.size())); // allocates the first time
    static const FaultStack stack; // of the main thread; others have their own, or leave no trace
    struct sigaction action = {};
    action.sa_handler = trace;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER | SA_ONSTACK);
    for (const int fault : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT})
        sigaction(fault, &action, nullptr);
#endif
}

void process::end(int status)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) // they report in a handler
    std::exit(status);
#else
    std::ignore = std::fflush(nullptr);
    _exit(status);
#endif
}

} // namespace vantro
