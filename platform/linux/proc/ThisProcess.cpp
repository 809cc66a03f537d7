#include "platform/ThisProcess.h"

#include <QFile>

#include <malloc.h>
#include <sys/resource.h>

#include <system_error>

namespace vantro {

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

} // namespace vantro
