#pragma once

#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "platform/SystemSounds.h"

#include <QByteArray>

struct ca_context;

namespace vantro {

/// Sound files below the data folders, through libcanberra: it speaks to the sound server that is there and keeps to
/// the loudness that the user has set for events.
class CanberraSounds final : public SystemSounds
{
public:
    CanberraSounds() = default;
    ~CanberraSounds() override;

    void play(const QString& name) override;

private:
    void playFile(const QByteArray& path);

    Logger logger_{"CanberraSounds"};
    ca_context* context_ = nullptr; ///< made with the first sound; belongs to the player's thread until that has ended
    std::unique_ptr<SerialExecutor> player_; ///< connecting to the sound server may take its time
};

} // namespace vantro
