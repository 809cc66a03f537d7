#pragma once

#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "platform/SystemSounds.h"

#include <QByteArray>

struct ca_context;

namespace vantro {

/// Plays sound files from the data folders through libcanberra, which uses the available sound server and the user's
/// volume for event sounds.
class CanberraSounds final : public SystemSounds
{
public:
    CanberraSounds() = default;
    ~CanberraSounds() override;

    void play(const QString& name) override;

private:
    void playFile(const QByteArray& path);

    Logger logger_{"CanberraSounds"};
    ca_context* context_ = nullptr;          ///< created by the first play(); used on the player's thread only
    std::unique_ptr<SerialExecutor> player_; ///< connecting to the sound server may block
};

} // namespace vantro
