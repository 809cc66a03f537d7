#include "platform/linux/pulse/PulseLoop.h"

#include <new>
#include <utility>

namespace vantro {

namespace {

void release(pa_operation* operation)
{
    if (operation != nullptr)
        pa_operation_unref(operation);
}

PulseSource toSource(const pa_source_info& info)
{
    return {.index = info.index,
            .id = info.index,
            .name = QString::fromUtf8(info.name),
            .description = QString::fromUtf8(info.description),
            .isMonitor = info.monitor_of_sink != PA_INVALID_INDEX,
            .format = {.sampleRateHz = static_cast<double>(info.sample_spec.rate),
                       .channelCount = info.sample_spec.channels}};
}

PulseCard toCard(const pa_card_info& info)
{
    const char* const description = pa_proplist_gets(info.proplist, PA_PROP_DEVICE_DESCRIPTION);
    PulseCard card{.name = QString::fromUtf8(info.name),
                   .description = QString::fromUtf8(description != nullptr ? description : info.name),
                   .activeProfile = {},
                   .profiles = {}};
    if (info.active_profile2 != nullptr)
        card.activeProfile = QString::fromUtf8(info.active_profile2->name);
    for (std::uint32_t i = 0; i < info.n_profiles; ++i) {
        const pa_card_profile_info2& profile = *info.profiles2[i];
        card.profiles.push_back({.name = QString::fromUtf8(profile.name),
                                 .records = profile.n_sources > 0,
                                 .isAvailable = profile.available != 0,
                                 .priority = profile.priority});
    }
    return card;
}

} // namespace

PulseLoop::PulseLoop(std::function<void()> published) : published_(std::move(published))
{
    mainloop_ = pa_threaded_mainloop_new();
    if (mainloop_ == nullptr)
        throw std::bad_alloc();
    // Before the start; later, the library would name the calling thread instead.
    pa_threaded_mainloop_set_name(mainloop_, "vantro-audio");
    if (pa_threaded_mainloop_start(mainloop_) < 0)
        throw std::bad_alloc();
}

PulseLoop::~PulseLoop()
{
    {
        const Lock lock(*this);
        dropContext();
    }
    pa_threaded_mainloop_stop(mainloop_);
    pa_threaded_mainloop_free(mainloop_);
}

void PulseLoop::connect(const std::optional<std::string>& server)
{
    const Lock lock(*this);
    dropContext();
    publish({.phase = PulseSnapshot::Phase::Connecting,
             .listing = listing_,
             .defaultSourceName = {},
             .sources = {},
             .cards = {}});

    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "vantro");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "com.vantro.app");
    context_ = pa_context_new_with_proplist(pa_threaded_mainloop_get_api(mainloop_), nullptr, properties);
    pa_proplist_free(properties);

    pa_context_set_state_callback(
        context_, [](pa_context*, void* self) { static_cast<PulseLoop*>(self)->contextChanged(); }, this);
    // Autospawning would block until the daemon is up; desktops start their sound server themselves.
    if (pa_context_connect(context_, server ? server->c_str() : nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        contextChanged();
}

void PulseLoop::dropContext()
{
    if (context_ == nullptr)
        return;
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_set_subscribe_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    context_ = nullptr;
    // Its pending requests are never answered.
    isListing_ = false;
    listAgain_ = false;
}

void PulseLoop::contextChanged()
{
    const pa_context_state_t state = pa_context_get_state(context_);
    if (state == PA_CONTEXT_READY) {
        pa_context_set_subscribe_callback(
            context_,
            [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
                static_cast<PulseLoop*>(self)->requestListing();
            },
            this);
        const auto mask = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SOURCE |
                                                              PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_CARD);
        release(pa_context_subscribe(context_, mask, nullptr, nullptr));
        requestListing();
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        publish({.phase = PulseSnapshot::Phase::Failed,
                 .listing = listing_,
                 .defaultSourceName = {},
                 .sources = {},
                 .cards = {}});
    }
}

std::uint64_t PulseLoop::requestListing()
{
    if (isListing_) {
        listAgain_ = true;
        return listing_ + 1;
    }
    beginListing();
    return listing_;
}

void PulseLoop::beginListing()
{
    ++listing_;
    if (context_ == nullptr || pa_context_get_state(context_) != PA_CONTEXT_READY)
        return;
    isListing_ = true;
    listAgain_ = false;
    incoming_ = {
        .phase = PulseSnapshot::Phase::Ready, .listing = listing_, .defaultSourceName = {}, .sources = {}, .cards = {}};
    // The answers arrive in this order.
    release(pa_context_get_server_info(context_, &PulseLoop::takeServerInfo, this));
    release(pa_context_get_card_info_list(context_, &PulseLoop::addCard, this));
    release(pa_context_get_source_info_list(context_, &PulseLoop::addSource, this));
}

void PulseLoop::takeServerInfo(pa_context* /*context*/, const pa_server_info* info, void* self)
{
    if (info != nullptr)
        static_cast<PulseLoop*>(self)->incoming_.defaultSourceName = QString::fromUtf8(info->default_source_name);
}

void PulseLoop::addCard(pa_context* /*context*/, const pa_card_info* info, int /*end*/, void* self)
{
    if (info != nullptr)
        static_cast<PulseLoop*>(self)->incoming_.cards.push_back(toCard(*info));
}

void PulseLoop::setCardProfile(const std::string& card, const std::string& profile)
{
    const Lock lock(*this);
    if (context_ != nullptr && pa_context_get_state(context_) == PA_CONTEXT_READY)
        release(pa_context_set_card_profile_by_name(context_, card.c_str(), profile.c_str(), nullptr, nullptr));
}

void PulseLoop::addSource(pa_context* context, const pa_source_info* info, int end, void* self)
{
    auto& loop = *static_cast<PulseLoop*>(self);
    if (end == 0)
        loop.incoming_.sources.push_back(toSource(*info));
    else
        loop.endListing(end < 0 && pa_context_errno(context) == PA_ERR_TIMEOUT);
}

void PulseLoop::endListing(bool timedOut)
{
    isListing_ = false;
    // Retry after a timeout; a server that refuses the listing has no microphone for us.
    if (!timedOut)
        publish(std::move(incoming_));
    if (timedOut || listAgain_)
        beginListing();
}

void PulseLoop::publish(PulseSnapshot snapshot)
{
    {
        const std::lock_guard lock(mutex_);
        latest_ = std::move(snapshot);
    }
    answered_.notify_all();
    published_();
}

PulseSnapshot PulseLoop::latest() const
{
    const std::lock_guard lock(mutex_);
    return latest_;
}

bool PulseLoop::waitForAnswer(Deadline deadline) const
{
    std::unique_lock lock(mutex_);
    return answered_.wait_until(lock, deadline, [this] { return latest_.phase != PulseSnapshot::Phase::Connecting; });
}

} // namespace vantro
