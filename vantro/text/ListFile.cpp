#include "vantro/text/ListFile.h"

#include "base/Error.h"
#include "base/OutputFile.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace vantro {

namespace {

constexpr qint64 megabyte = 1'000'000;

} // namespace

QByteArray readListFile(const QString& path)
{
    QFile file(path);
    const bool isOpen =
        path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    QByteArray content = isOpen ? file.read(maxListFileBytes + 1) : QByteArray();
    if (!isOpen || file.error() != QFileDevice::NoError)
        throw Error(QCoreApplication::translate("ListFile", "%1 cannot be read: %2").arg(path, file.errorString()));
    if (content.size() > maxListFileBytes)
        throw Error(QCoreApplication::translate("ListFile", "%1 is too large: it has more than %2 MB")
                        .arg(path)
                        .arg(maxListFileBytes / megabyte));
    return content;
}

void writeListFile(const QString& path, const QByteArray& content)
{
    if (path.isEmpty() || path == QLatin1String("-")) {
        std::fwrite(content.constData(), 1, static_cast<std::size_t>(content.size()), stdout);
        if (std::fflush(stdout) != 0)
            throw Error(QCoreApplication::translate("ListFile", "Cannot write to standard output"));
        return;
    }
    writeFile(path, content);
}

} // namespace vantro
