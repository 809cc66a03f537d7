#pragma once

#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <chrono>

namespace vantro::testing {

/// A program run beside the test, ended with the object. Not QProcess: its fork makes the thread sanitizer lose sight
/// of every lock that the calling thread takes from then on.
class ChildProcess
{
public:
    /// Looks @p command's program up in PATH; @p variables: "NAME=value", added to this process's environment. Its
    /// output goes to the file @p outputPath, or nowhere.
    ChildProcess(const QStringList& command, const QStringList& variables, const QString& outputPath = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] bool hasEnded() { return waitForEnd(std::chrono::milliseconds(0)); }
    /// False when it has not ended by then.
    [[nodiscard]] bool waitForEnd(std::chrono::milliseconds patience);
    /// Of an ended process; -1 when a signal ended it.
    [[nodiscard]] int exitCode() const { return exitCode_; }
    void signal(int number);
    /// Ends it by force and waits for that.
    void kill();

private:
    pid_t pid_ = -1;
    int handle_ = -1;
    bool ended_ = false;
    int exitCode_ = -1;
};

} // namespace vantro::testing
