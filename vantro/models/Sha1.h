#pragma once

#include <QFile>
#include <QString>

namespace vantro {

/// The SHA-1 of everything in an open file from its current position on, as 40 lower-case hex digits. Reads chunks of
/// 1 MiB and keeps nothing else. Throws Error when the file cannot be read to its end. Any thread.
QString sha1OfFile(QFile& file);

/// The same for a whole file by its path.
QString sha1OfFile(const QString& path);

} // namespace vantro
