#pragma once

#include <QFile>
#include <QString>

namespace vantro {

/// The SHA-1 of an open file from its current position to its end, as 40 lower-case hex digits. Reads in chunks of 1
/// MiB. Throws Error on a read failure. Any thread.
QString sha1OfFile(QFile& file);

/// The same for a whole file.
QString sha1OfFile(const QString& path);

/// A whole file's SHA-256, as 64 lower-case hex digits.
QString sha256OfFile(const QString& path);

} // namespace vantro
