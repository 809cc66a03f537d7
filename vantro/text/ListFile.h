#pragma once

#include <QByteArray>
#include <QString>

namespace vantro {

/// What is larger is no list that anybody wrote.
constexpr qint64 maxListFileBytes = 10'000'000;

/// Returns the content of @p path, or of standard input for "-". Throws Error.
QByteArray readListFile(const QString& path);
/// Writes a file as writeFile() does, or to standard output for an empty path or "-". Throws Error.
void writeListFile(const QString& path, const QByteArray& content);

} // namespace vantro
