#include "tests/platform/linux/pulse/ChildProcess.h"

#include <QByteArrayList>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace vantro::testing {

namespace {

std::vector<char*> pointers(QByteArrayList& texts)
{
    std::vector<char*> result;
    for (QByteArray& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

QByteArrayList environmentWith(const QStringList& variables)
{
    // The first of two equal names counts.
    QByteArrayList result;
    for (const QString& variable : variables)
        result << variable.toLocal8Bit();
    for (char** variable = environ; *variable != nullptr; ++variable)
        result << QByteArray(*variable);
    return result;
}

} // namespace

ChildProcess::ChildProcess(const QStringList& command, const QStringList& variables, const QString& outputPath)
{
    QByteArrayList arguments;
    for (const QString& argument : command)
        arguments << argument.toLocal8Bit();
    QByteArrayList environment = environmentWith(variables);
    const QByteArray output = outputPath.isEmpty() ? QByteArray("/dev/null") : outputPath.toLocal8Bit();

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int error = posix_spawnp(&pid_, arguments[0].constData(), &actions, nullptr, pointers(arguments).data(),
                                   pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error(arguments[0].toStdString() + ": " + std::strerror(error));
    handle_ = static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0));
}

ChildProcess::~ChildProcess()
{
    kill();
    ::close(handle_);
}

bool ChildProcess::waitForEnd(std::chrono::milliseconds patience)
{
    if (ended_)
        return true;
    pollfd end{.fd = handle_, .events = POLLIN, .revents = 0};
    if (::poll(&end, 1, static_cast<int>(patience.count())) <= 0)
        return false;
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended_ = true;
    return true;
}

void ChildProcess::signal(int number)
{
    if (!ended_)
        ::kill(pid_, number);
}

void ChildProcess::kill()
{
    signal(SIGKILL);
    while (!waitForEnd(std::chrono::seconds(1))) {
    }
}

} // namespace vantro::testing
