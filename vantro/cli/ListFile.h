#pragma once

#include <QByteArray>
#include <QString>

namespace vantro {

/// Returns the content of @p path, or of standard input for "-". Throws Error.
QByteArray readListFile(const QString& path);
/// Writes a file atomically, or to standard output for an empty path or "-". Throws Error.
void writeListFile(const QString& path, const QByteArray& content);

} // namespace vantro
