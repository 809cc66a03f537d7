#pragma once

#include <QByteArray>
#include <QString>

namespace vantro {

/// The content of @p path; of standard input for "-". Throws an Error.
QByteArray readListFile(const QString& path);
/// Writes a whole file or none; to standard output for an empty path or "-". Throws an Error.
void writeListFile(const QString& path, const QByteArray& content);

} // namespace vantro
