#include "platform/linux/wayland/ClipboardService.h"

#include "platform/linux/wayland/ClipboardWorker.h"

#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>
#include <future>
#include <utility>

namespace vantro {

ClipboardService::ClipboardService() : wake_(eventfd(0, EFD_CLOEXEC))
{
    std::promise<void> started;
    thread_ = std::thread([this, &started] { run([&started] { started.set_value(); }); });
    started.get_future().wait();
}

ClipboardService::~ClipboardService()
{
    post({});
    thread_.join();
    close(wake_);
}

void ClipboardService::run(std::function<void()> started)
{
    // A program that ends while it pastes must not end this one.
    sigset_t broken;
    sigemptyset(&broken);
    sigaddset(&broken, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &broken, nullptr);
    ClipboardWorker worker;
    isOffered_ = worker.isOffered();
    started();
    while (true) {
        worker.handleUntil(wake_);
        for (const auto& work : takeWork()) {
            if (!work)
                return;
            work(worker);
        }
    }
}

std::vector<std::function<void(ClipboardWorker&)>> ClipboardService::takeWork()
{
    eventfd_t count = 0;
    eventfd_read(wake_, &count);
    const std::lock_guard lock(mutex_);
    return std::exchange(work_, {});
}

/// An empty @p work ends the thread.
void ClipboardService::post(std::function<void(ClipboardWorker&)> work)
{
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
    eventfd_write(wake_, 1);
}

void ClipboardService::onThread(std::function<void(ClipboardWorker&)> work)
{
    std::promise<void> done;
    post([&](ClipboardWorker& worker) {
        work(worker);
        done.set_value();
    });
    done.get_future().wait();
}

bool ClipboardService::isOffered() const
{
    return isOffered_;
}

void ClipboardService::own(Selection selection, std::shared_ptr<const ClipboardContents> contents)
{
    onThread([&](ClipboardWorker& worker) { worker.own(selection, std::move(contents)); });
}

void ClipboardService::disown(Selection selection)
{
    onThread([&](ClipboardWorker& worker) { worker.disown(selection); });
}

bool ClipboardService::isOwner(Selection selection)
{
    bool result = false;
    onThread([&](ClipboardWorker& worker) { result = worker.isOwner(selection); });
    return result;
}

std::optional<QByteArray> ClipboardService::text(Selection selection)
{
    std::optional<QByteArray> result;
    onThread([&](ClipboardWorker& worker) { result = worker.text(selection); });
    return result;
}

bool ClipboardService::isSecret(Selection selection)
{
    bool result = false;
    onThread([&](ClipboardWorker& worker) { result = worker.isSecret(selection); });
    return result;
}

void ClipboardService::fetchContents(Selection selection)
{
    post([selection](ClipboardWorker& worker) { worker.fetchContents(selection); });
}

std::shared_ptr<const ClipboardContents> ClipboardService::contents(Selection selection)
{
    std::shared_ptr<const ClipboardContents> result;
    onThread([&](ClipboardWorker& worker) { result = worker.contents(selection); });
    return result;
}

bool ClipboardService::wasFetched(Selection selection)
{
    bool result = false;
    onThread([&](ClipboardWorker& worker) { result = worker.wasFetched(selection); });
    return result;
}

void ClipboardService::forgetFetches()
{
    onThread([](ClipboardWorker& worker) { worker.forgetFetches(); });
}

} // namespace vantro
