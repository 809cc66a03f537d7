#pragma once

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <csignal>

namespace vantro {

/// One of the tests' servers in Python as a child process.
class ServerProcess
{
public:
    /// Waits until the server has written its port into @p portFile. @p script: below tests/.
    ServerProcess(const QString& script, const QStringList& arguments, const QString& portFile)
    {
        QFile::remove(portFile);
        // A test that crashes takes it along, or its output would never end.
        process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        process_.setProcessChannelMode(QProcess::ForwardedChannels);
        process_.start(QStringLiteral("/usr/bin/python3"),
                       QStringList{qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/tests/") + script} +
                           arguments);
        const QDeadlineTimer deadline(std::chrono::seconds(20));
        while (port_.isEmpty() && !deadline.hasExpired() && !process_.waitForFinished(10))
            port_ = contents(portFile);
        EXPECT_FALSE(port_.isEmpty()) << script.toStdString() << " does not start";
    }
    ~ServerProcess()
    {
        process_.kill();
        process_.waitForFinished();
    }

    [[nodiscard]] const QString& port() const { return port_; }

    /// Empty when there is no such file yet.
    static QString contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    QProcess process_;
    QString port_;
};

} // namespace vantro
