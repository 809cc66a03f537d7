#pragma once
// Private to this folder: includes libpulse headers.

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

/// libpulse's thread and the shared connection (context). Streams run on it too: it is the audio thread. Never waits
/// for the server while holding the library's lock.
class PulseLoop
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Holds the library's lock, which is also held during all callbacks on the audio thread.
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

    /// @p published is called on the loop's thread after every new snapshot.
    explicit PulseLoop(std::function<void()> published);
    ~PulseLoop();
    PulseLoop(const PulseLoop&) = delete;
    PulseLoop& operator=(const PulseLoop&) = delete;

    /// Replaces the connection by a new one and returns immediately. Without @p server, the user's configuration
    /// applies. Takes the lock.
    void connect(const std::optional<std::string>& server);

    /// Requires the lock; may be null.
    [[nodiscard]] pa_context* context() const { return context_; }
    /// Requests a new listing of the sources. Requires the lock. Returns the number of the listing, which shows
    /// everything that has happened so far. Requests in quick succession share one listing.
    std::uint64_t requestListing();
    /// Returns immediately. Takes the lock.
    void setCardProfile(const std::string& card, const std::string& profile);
    /// Calls published() without a new listing. Any thread.
    void wake() { published_(); }

    /// The latest snapshot. Any thread.
    [[nodiscard]] PulseSnapshot latest() const;
    /// Blocks until the connection is made or refused; returns false on timeout. Must not be called with the lock held.
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
