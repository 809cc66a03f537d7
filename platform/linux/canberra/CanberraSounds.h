#pragma once

#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "platform/SystemSounds.h"

struct ca_context;

namespace vantro {

/// Sounds of the desktop's sound theme, through libcanberra.
class CanberraSounds final : public SystemSounds
{
public:
    CanberraSounds() = default;
    ~CanberraSounds() override;

    void playCompleted() override;

private:
    void play(const char* event);

    Logger logger_{"CanberraSounds"};
    ca_context* context_ = nullptr; ///< made with the first sound; belongs to the player's thread until that has ended
    std::unique_ptr<SerialExecutor> player_; ///< connecting to the sound server may take its time
};

} // namespace vantro
