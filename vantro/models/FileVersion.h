#pragma once

#include <QString>

#include <sys/types.h>

namespace vantro {

/// Tells a file from another one that has replaced it under the same name, without reading it. All zero for a missing
/// file. Any thread.
struct FileVersion
{
    static FileVersion of(const QString& path);

    bool operator==(const FileVersion&) const = default;

    QString path;
    ino_t inode = 0;
    off_t bytes = 0;
    qint64 modifiedNs = 0; ///< since 1970
};

} // namespace vantro
