#include "platform/linux/wayland/ClipboardWorker.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <wayland-client.h>
#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

using Device = zwlr_data_control_device_v1;
using Offer = zwlr_data_control_offer_v1;
using Source = zwlr_data_control_source_v1;
using TimePoint = std::chrono::steady_clock::time_point;

constexpr std::uint32_t dataControlVersion = 2; ///< the first with the primary selection
constexpr auto fetchPatience = 300ms;
constexpr auto backgroundPatience = 1000ms;
constexpr qsizetype mostBytes = qsizetype{32} * 1024 * 1024;
constexpr std::array textTypes{"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "TEXT", "STRING"};

bool isText(const QByteArray& mimeType)
{
    return std::ranges::any_of(textTypes, [&](const char* type) { return mimeType == type; });
}

bool contains(const std::vector<QByteArray>& mimeTypes, const char* wanted)
{
    return std::ranges::any_of(mimeTypes, [&](const QByteArray& offered) { return offered == wanted; });
}

const ClipboardContents::Format* formatOf(const ClipboardContents& contents, const QByteArray& mimeType)
{
    const auto found =
        std::ranges::find_if(contents.formats, [&](const auto& format) { return format.mimeType == mimeType; });
    return found != contents.formats.end() ? &*found : nullptr;
}

} // namespace

struct ClipboardWorker::Callbacks
{
    static ClipboardWorker& self(void* data) { return *static_cast<ClipboardWorker*>(data); }

    static void offer(void* data, Device*, Offer* offer)
    {
        self(data).introduced_.push_back({offer, {}});
        zwlr_data_control_offer_v1_add_listener(offer, &offerListener, data);
    }
    static void mimeType(void* data, Offer* offer, const char* mimeType)
    {
        auto& introduced = self(data).introduced_;
        const auto found = std::ranges::find(introduced, offer, &Offered::offer);
        if (found != introduced.end())
            found->mimeTypes.emplace_back(mimeType);
    }
    static void selection(void* data, Device*, Offer* offer) { self(data).adopt(self(data).states_[0], offer); }
    static void primary(void* data, Device*, Offer* offer) { self(data).adopt(self(data).states_[1], offer); }
    static void finished(void* data, Device* device)
    {
        zwlr_data_control_device_v1_destroy(device);
        self(data).device_ = nullptr;
    }
    static void send(void* data, Source* source, const char* mimeType, int descriptor)
    {
        self(data).send(source, mimeType, descriptor);
    }
    static void cancelled(void* data, Source* source)
    {
        if (State* const state = self(data).ofSource(source))
            state->source = nullptr;
        zwlr_data_control_source_v1_destroy(source);
    }

    static constexpr zwlr_data_control_device_v1_listener deviceListener{offer, selection, finished, primary};
    static constexpr zwlr_data_control_offer_v1_listener offerListener{mimeType};
    static constexpr zwlr_data_control_source_v1_listener sourceListener{send, cancelled};
};

ClipboardWorker::ClipboardWorker()
    : manager_(static_cast<zwlr_data_control_manager_v1*>(
          connection_.bind(zwlr_data_control_manager_v1_interface, dataControlVersion)))
{
    if (manager_ == nullptr || connection_.seat() == nullptr)
        return;
    device_ = zwlr_data_control_manager_v1_get_data_device(manager_, connection_.seat());
    zwlr_data_control_device_v1_add_listener(device_, &Callbacks::deviceListener, this);
    connection_.roundTrip();
}

ClipboardWorker::~ClipboardWorker()
{
    for (State& state : states_) {
        adopt(state, nullptr);
        if (state.source != nullptr)
            zwlr_data_control_source_v1_destroy(state.source);
    }
    for (const Offered& offered : introduced_)
        zwlr_data_control_offer_v1_destroy(offered.offer);
    if (device_ != nullptr)
        zwlr_data_control_device_v1_destroy(device_);
    if (manager_ != nullptr)
        zwlr_data_control_manager_v1_destroy(manager_);
}

void ClipboardWorker::handleUntil(int wake)
{
    std::vector<pollfd> waiting;
    do {
        if (connection_.isOpen())
            connection_.dispatch();
        transfers_.proceed();
        waiting = {{wake, POLLIN, 0}};
        if (connection_.isOpen())
            waiting.push_back({connection_.descriptor(), POLLIN, 0});
        transfers_.addTo(waiting);
        poll(waiting.data(), waiting.size(), -1);
    } while ((waiting.front().revents & POLLIN) == 0);
}

ClipboardWorker::State* ClipboardWorker::ofSource(const Source* source)
{
    const auto found = std::ranges::find(states_, source, &State::source);
    return found != states_.end() ? &*found : nullptr;
}

/// Null for a selection that nobody owns.
void ClipboardWorker::adopt(State& state, Offer* offer)
{
    if (state.offered.offer != nullptr)
        zwlr_data_control_offer_v1_destroy(state.offered.offer);
    state.offered = {};
    const auto found = std::ranges::find(introduced_, offer, &Offered::offer);
    if (offer == nullptr || found == introduced_.end())
        return;
    state.offered = std::move(*found);
    introduced_.erase(found);
}

void ClipboardWorker::own(Selection selection, std::shared_ptr<const ClipboardContents> contents)
{
    if (device_ == nullptr)
        return;
    Source* const source = zwlr_data_control_manager_v1_create_data_source(manager_);
    zwlr_data_control_source_v1_add_listener(source, &Callbacks::sourceListener, this);
    for (const auto& format : contents->formats)
        zwlr_data_control_source_v1_offer(source, format.mimeType.constData());
    State& state = of(selection);
    if (Source* const former = std::exchange(state.source, source))
        zwlr_data_control_source_v1_destroy(former);
    state.ours = std::move(contents);
    state.fetches = 0;
    give(selection, source);
}

void ClipboardWorker::disown(Selection selection)
{
    if (device_ == nullptr)
        return;
    if (Source* const former = std::exchange(of(selection).source, nullptr))
        zwlr_data_control_source_v1_destroy(former);
    give(selection, nullptr);
}

void ClipboardWorker::give(Selection selection, Source* source)
{
    if (selection == Selection::Clipboard)
        zwlr_data_control_device_v1_set_selection(device_, source);
    else if (zwlr_data_control_device_v1_get_version(device_) >=
             ZWLR_DATA_CONTROL_DEVICE_V1_SET_PRIMARY_SELECTION_SINCE_VERSION)
        zwlr_data_control_device_v1_set_primary_selection(device_, source);
    connection_.roundTrip();
}

void ClipboardWorker::send(Source* source, const QByteArray& mimeType, int descriptor)
{
    const State* const state = ofSource(source);
    const auto* const format = state != nullptr ? formatOf(*state->ours, mimeType) : nullptr;
    if (format == nullptr) {
        close(descriptor);
        return;
    }
    const bool counts = isText(mimeType);
    transfers_.send(descriptor, format->bytes, [this, source, counts] {
        if (State* const owned = ofSource(source); owned != nullptr && counts)
            ++owned->fetches;
    });
}

void ClipboardWorker::forgetFetches()
{
    for (State& state : states_)
        state.fetches = 0;
}

std::optional<QByteArray> ClipboardWorker::fetch(Offer* offer, const QByteArray& mimeType, TimePoint giveUp,
                                                 qsizetype most)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    zwlr_data_control_offer_v1_receive(offer, mimeType.constData(), ends[1]);
    wl_display_flush(connection_.display());
    close(ends[1]);
    return readToEnd(ends[0], giveUp, most);
}

std::optional<QByteArray> ClipboardWorker::text(Selection selection)
{
    connection_.roundTrip();
    State& state = of(selection);
    if (state.source != nullptr) {
        const auto format =
            std::ranges::find_if(state.ours->formats, [](const auto& candidate) { return isText(candidate.mimeType); });
        return format != state.ours->formats.end() ? std::optional(format->bytes) : std::nullopt;
    }
    for (const char* const type : textTypes) {
        if (contains(state.offered.mimeTypes, type))
            return fetch(state.offered.offer, type, std::chrono::steady_clock::now() + fetchPatience, mostBytes);
    }
    return std::nullopt;
}

bool ClipboardWorker::isSecret(Selection selection)
{
    const State& state = of(selection);
    if (state.source != nullptr)
        return formatOf(*state.ours, secretType) != nullptr;
    return contains(state.offered.mimeTypes, secretType) &&
           fetch(state.offered.offer, secretType, std::chrono::steady_clock::now() + fetchPatience, mostBytes) ==
               QByteArray(secretValue);
}

void ClipboardWorker::fetchContents(Selection selection)
{
    connection_.roundTrip();
    State& state = of(selection);
    if (state.source != nullptr)
        return;
    state.fetched = fetchAll(state.offered, backgroundPatience);
    state.fetchedFrom = state.offered.offer;
}

std::shared_ptr<const ClipboardContents> ClipboardWorker::contents(Selection selection)
{
    connection_.roundTrip();
    State& state = of(selection);
    if (state.source != nullptr)
        return state.ours;
    auto fetched = std::exchange(state.fetched, nullptr);
    if (!fetched || state.fetchedFrom != state.offered.offer)
        fetched = fetchAll(state.offered, fetchPatience);
    return fetched && !fetched->formats.empty() ? fetched : nullptr;
}

std::shared_ptr<const ClipboardContents> ClipboardWorker::fetchAll(const Offered& offered,
                                                                   std::chrono::milliseconds limit)
{
    const auto giveUp = std::chrono::steady_clock::now() + limit;
    auto result = std::make_shared<ClipboardContents>();
    qsizetype left = mostBytes;
    for (const QByteArray& mimeType : offered.mimeTypes) {
        if (auto bytes = fetch(offered.offer, mimeType, giveUp, left)) {
            left -= bytes->size();
            result->formats.push_back({mimeType, std::move(*bytes)});
        }
    }
    return result;
}

} // namespace vantro
