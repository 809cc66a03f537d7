#include "vantro/models/FileVersion.h"

#include <QFile>

#include <sys/stat.h>

#include <chrono>

namespace vantro {

FileVersion FileVersion::of(const QString& path)
{
    FileVersion version{path};
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return version;
    const auto modified =
        std::chrono::seconds(status.st_mtim.tv_sec) + std::chrono::nanoseconds(status.st_mtim.tv_nsec);
    version.inode = status.st_ino;
    version.bytes = status.st_size;
    version.modifiedNs = modified.count();
    return version;
}

} // namespace vantro
