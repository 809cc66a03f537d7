#define SD_JOURNAL_SUPPRESS_LOCATION // it would always be this file's
#include "platform/SystemLog.h"

#include <QCoreApplication>

#include <sys/stat.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace vantro::systemlog {

namespace {

int priority(QtMsgType level)
{
    switch (level) {
    case QtDebugMsg:
        return LOG_DEBUG;
    case QtInfoMsg:
        return LOG_INFO;
    case QtWarningMsg:
        return LOG_WARNING;
    default:
        return LOG_ERR;
    }
}

/// Whether standard error already goes to the journal, as for programs started by the session.
bool isStandardError()
{
    // "device:inode" of the stream that the journal gave to the process; children with a different standard error
    // inherit the variable too.
    const char* const stream = std::getenv("JOURNAL_STREAM");
    struct stat file = {};
    if (stream == nullptr || fstat(STDERR_FILENO, &file) != 0)
        return false;
    return QString::fromLatin1(stream) == QStringLiteral("%1:%2").arg(file.st_dev).arg(file.st_ino);
}

/// Writes the type to the field "VANTRO_TYPE". Any thread.
void write(QtMsgType level, const char* typeName, const QString& line)
{
    sd_journal_send("MESSAGE=%s", qUtf8Printable(line), "PRIORITY=%i", priority(level), "SYSLOG_IDENTIFIER=vantro",
                    "VANTRO_TYPE=%s", typeName, nullptr);
}

} // namespace

bool isPresent()
{
    return access("/run/systemd/journal/socket", W_OK) == 0;
}

std::vector<LogSink> sinks()
{
    if (!isPresent())
        return {logToStandardError};
    if (isStandardError())
        return {write};
    return {write, logToStandardError};
}

QString read(const QString& since, bool follow)
{
    QList<QByteArray> command{"journalctl", "--identifier=vantro", "--output=short-iso"};
    if (follow)
        command << "--follow";
    if (!since.isEmpty())
        command << "--since=" + since.toLocal8Bit();
    std::vector<char*> argv;
    for (QByteArray& argument : command)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execvp(argv.front(), argv.data());
    return QCoreApplication::translate("Journal", "journalctl could not be started: ") +
           QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace vantro::systemlog
