#pragma once

#include "platform/linux/wayland/ClipboardContents.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace vantro {

class ClipboardWorker;

/// Owns and reads the selections by the data-control protocol, which needs no window, on a thread and a connection of
/// its own: other programs get the text even while the main thread is busy, and waits for an unresponsive program are
/// bounded. Any thread, but not for what Qt in this process owns: that needs the main thread.
class ClipboardService
{
public:
    using Selection = Pasteboard::Selection;

    ClipboardService();
    ~ClipboardService();
    ClipboardService(const ClipboardService&) = delete;
    ClipboardService& operator=(const ClipboardService&) = delete;

    /// Whether the compositor has the protocol. Without it, selections are empty and setters are no-ops.
    [[nodiscard]] bool isOffered() const;

    /// Returns when the compositor has it.
    void own(Selection selection, std::shared_ptr<const ClipboardContents> contents);
    void disown(Selection selection);
    [[nodiscard]] bool isOwner(Selection selection);
    /// nullopt if there is no text, or its owner does not answer within 0.3 s.
    [[nodiscard]] std::optional<QByteArray> text(Selection selection);
    /// Whether it bears the mark of password managers.
    [[nodiscard]] bool isSecret(Selection selection);
    /// See Pasteboard.
    void fetchContents(Selection selection);
    [[nodiscard]] std::shared_ptr<const ClipboardContents> contents(Selection selection);

    /// Whether any program has taken the text since it was set, or since the last forgetFetches().
    [[nodiscard]] bool wasFetched(Selection selection);
    /// Clipboard managers take every text at once: what they took does not count any more.
    void forgetFetches();

private:
    void onThread(std::function<void(ClipboardWorker&)> work);
    void post(std::function<void(ClipboardWorker&)> work);
    void run(std::function<void()> started);
    [[nodiscard]] std::vector<std::function<void(ClipboardWorker&)>> takeWork();

    std::mutex mutex_;
    std::vector<std::function<void(ClipboardWorker&)>> work_; ///< guarded by the mutex
    bool isOffered_ = false;
    int wake_ = -1;
    std::thread thread_;
};

} // namespace vantro
