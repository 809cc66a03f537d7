#include "platform/linux/canberra/CanberraSounds.h"

#include <canberra.h>

namespace vantro {

CanberraSounds::~CanberraSounds()
{
    player_.reset();
    if (context_ != nullptr)
        ca_context_destroy(context_);
}

void CanberraSounds::playCompleted()
{
    if (!player_)
        player_ = std::make_unique<SerialExecutor>(QStringLiteral("vantro sounds"));
    // Nobody waits for a sound.
    static_cast<void>(player_->run([this] { play("complete"); }));
}

void CanberraSounds::play(const char* event)
{
    int status = context_ != nullptr ? CA_SUCCESS : ca_context_create(&context_);
    if (status == CA_SUCCESS) {
        status = ca_context_play(context_, 0, CA_PROP_APPLICATION_ID, "com.vantro.app", CA_PROP_MEDIA_ROLE, "event",
                                 CA_PROP_EVENT_ID, event, nullptr);
    }
    if (status != CA_SUCCESS)
        logger_.info(QStringLiteral("No sound: ") + QString::fromUtf8(ca_strerror(status)));
}

} // namespace vantro
