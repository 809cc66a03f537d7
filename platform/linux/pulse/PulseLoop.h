#pragma once
// Private to this folder: includes the sound server's own headers.

#include "platform/linux/pulse/PulseSnapshot.h"

#include <pulse/pulseaudio.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace vantro {

/// The client library's own thread with the one connection (context) that everything shares. Streams run on this thread
/// too: it is the audio thread. Never waits for the server while it holds the library's lock.
class PulseLoop
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Holds the library's lock, which the audio thread holds whenever it runs our code.
    class Lock
    {
    public:
        explicit Lock(PulseLoop& loop) : loop_(loop) { pa_threaded_mainloop_lock(loop_.mainloop_); }
        ~Lock() { pa_threaded_mainloop_unlock(loop_.mainloop_); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        PulseLoop& loop_;
    };

    /// @p published: called after every new snapshot, on the loop's thread.
    explicit PulseLoop(std::function<void()> published);
    ~PulseLoop();
    PulseLoop(const PulseLoop&) = delete;
    PulseLoop& operator=(const PulseLoop&) = delete;

    /// Gives up the connection there was and begins a new one; returns at once. Without @p server the user's own
    /// settings name it. Takes the lock.
    void connect(const std::optional<std::string>& server);

    /// Only while holding the lock; may be null.
    [[nodiscard]] pa_context* context() const { return context_; }
    /// Asks the server for its sources once more. Only while holding the lock. The number that the listing will bear:
    /// it shows everything that has happened until now. Requests in quick succession share one listing.
    std::uint64_t requestListing();
    /// Returns at once. Takes the lock.
    void setCardProfile(const std::string& card, const std::string& profile);
    /// Has published() called without a new listing. Any thread.
    void wake() { published_(); }

    /// The newest snapshot. Any thread.
    [[nodiscard]] PulseSnapshot latest() const;
    /// Waits until the connection has been made or refused; false when the deadline came first. Not with the lock held.
    bool waitForAnswer(Deadline deadline) const;

private:
    void dropContext();
    void contextChanged();
    void beginListing();
    void endListing(bool timedOut);
    void publish(PulseSnapshot snapshot);
    static void addSource(pa_context* context, const pa_source_info* info, int end, void* self);
    static void addCard(pa_context* context, const pa_card_info* info, int end, void* self);
    static void takeServerInfo(pa_context* context, const pa_server_info* info, void* self);

    std::function<void()> published_;
    pa_threaded_mainloop* mainloop_ = nullptr;

    // Guarded by the library's lock.
    pa_context* context_ = nullptr;
    PulseSnapshot incoming_;
    std::uint64_t listing_ = 0;
    bool isListing_ = false;
    bool listAgain_ = false;

    mutable std::mutex mutex_;
    mutable std::condition_variable answered_;
    PulseSnapshot latest_;
};

} // namespace vantro
