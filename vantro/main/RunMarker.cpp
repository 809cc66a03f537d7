#include "vantro/main/RunMarker.h"

#include "platform/ThisProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>

namespace vantro {

namespace {

/// Static because Qt calls exit() when the display is gone, which runs no destructors of automatic objects.
std::array<char, 4096> markerPath{};

void removeMarker()
{
    if (markerPath.front() != '\0')
        unlink(markerPath.data());
    markerPath.front() = '\0';
}

} // namespace

QString RunMarker::standardPath()
{
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder))
        folder = QDir::homePath() + QStringLiteral("/.local/state");
    return folder + QStringLiteral("/vantro/running");
}

RunMarker::RunMarker(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        foundCrash_ = file.readAll().trimmed() == process::bootIdentity();
        file.close();
    }
    QDir().mkpath(QFileInfo(path).path());
    const QByteArray encoded = QFile::encodeName(path);
    if (encoded.size() >= static_cast<qsizetype>(markerPath.size()) || !file.open(QIODevice::WriteOnly))
        return;
    file.write(process::bootIdentity());
    std::memcpy(markerPath.data(), encoded.constData(), static_cast<std::size_t>(encoded.size()) + 1);
    std::atexit(removeMarker);
}

RunMarker::~RunMarker()
{
    removeMarker();
}

} // namespace vantro
