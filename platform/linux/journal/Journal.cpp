#define SD_JOURNAL_SUPPRESS_LOCATION // it would be this file's, in every line
#include "platform/linux/journal/Journal.h"

#include <sys/stat.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cstdlib>

namespace vantro::journal {

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

} // namespace

bool isPresent()
{
    return access("/run/systemd/journal/socket", W_OK) == 0;
}

bool isStandardError()
{
    // "device:inode" of the stream that the journal has given to the process; it is inherited by children that have
    // another standard error.
    const char* const stream = std::getenv("JOURNAL_STREAM");
    struct stat file = {};
    if (stream == nullptr || fstat(STDERR_FILENO, &file) != 0)
        return false;
    return QString::fromLatin1(stream) == QStringLiteral("%1:%2").arg(file.st_dev).arg(file.st_ino);
}

void write(QtMsgType level, const char* typeName, const QString& line)
{
    sd_journal_send("MESSAGE=%s", qUtf8Printable(line), "PRIORITY=%i", priority(level), "SYSLOG_IDENTIFIER=vantro",
                    "VANTRO_TYPE=%s", typeName, nullptr);
}

} // namespace vantro::journal
