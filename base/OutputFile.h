#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <functional>

namespace vantro {

enum class Readers { umask, ownerOnly };

/// Lets @p fill write a file, which appears or is replaced as a whole once all of it is on the disk. A pipe or a device
/// takes the bytes as they come, and stays what it is. Throws Error, which names the file. Any thread.
void writeFile(const QString& path, const std::function<void(QIODevice&)>& fill, Readers readers = Readers::umask);
void writeFile(const QString& path, const QByteArray& content, Readers readers = Readers::umask);

} // namespace vantro
