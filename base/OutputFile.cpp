#include "base/OutputFile.h"

#include "base/Error.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

namespace vantro {

namespace {

[[noreturn]] void fail(const QFileDevice& file)
{
    throw Error(
        QCoreApplication::translate("OutputFile", "%1 cannot be written: %2").arg(file.fileName(), file.errorString()));
}

void writeInto(const QString& special, const std::function<void(QIODevice&)>& fill)
{
    QFile file(special);
    if (!file.open(QIODevice::WriteOnly))
        fail(file);
    fill(file);
    file.flush();
    if (file.error() != QFileDevice::NoError)
        fail(file);
}

} // namespace

void writeFile(const QString& path, const std::function<void(QIODevice&)>& fill, Readers readers)
{
    if (const QFileInfo present(path); present.exists() && !present.isFile() && !present.isDir()) {
        writeInto(path, fill);
        return;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        fail(file);
    if (readers == Readers::ownerOnly && !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        fail(file);
    fill(file);
    if (!file.commit())
        fail(file);
}

void writeFile(const QString& path, const QByteArray& content, Readers readers)
{
    const auto fill = [&content](QIODevice& file) {
        file.write(content);
    };
    writeFile(path, fill, readers);
}

} // namespace vantro
