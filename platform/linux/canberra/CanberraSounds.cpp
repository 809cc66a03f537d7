#include "platform/linux/canberra/CanberraSounds.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <canberra.h>

namespace vantro {

namespace {

/// Searches the data folders, then relative to the program.
QString soundFile(const QString& name)
{
    const QString file = QStringLiteral("vantro/sounds/%1.wav").arg(name);
    const QString installed = QStandardPaths::locate(QStandardPaths::GenericDataLocation, file);
    if (!installed.isEmpty())
        return installed;
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/") + file;
    return QFile::exists(beside) ? beside : QString();
}

} // namespace

CanberraSounds::~CanberraSounds()
{
    player_.reset();
    if (context_ != nullptr)
        ca_context_destroy(context_);
}

void CanberraSounds::play(const QString& name)
{
    const QString path = soundFile(name);
    if (path.isEmpty()) {
        logger_.info(QStringLiteral("Sound file not found: %1").arg(name));
        return;
    }
    if (!player_)
        player_ = std::make_unique<SerialExecutor>(QStringLiteral("vantro sounds"));
    // Fire and forget.
    static_cast<void>(player_->run([this, path = QFile::encodeName(path)] { playFile(path); }));
}

void CanberraSounds::playFile(const QByteArray& path)
{
    int status = context_ != nullptr ? CA_SUCCESS : ca_context_create(&context_);
    if (status == CA_SUCCESS) {
        status = ca_context_play(context_, 0, CA_PROP_APPLICATION_ID, "com.vantro.app", CA_PROP_MEDIA_ROLE, "event",
                                 CA_PROP_MEDIA_FILENAME, path.constData(), nullptr);
    }
    if (status != CA_SUCCESS)
        logger_.info(QStringLiteral("No sound: ") + QString::fromUtf8(ca_strerror(status)));
}

} // namespace vantro
