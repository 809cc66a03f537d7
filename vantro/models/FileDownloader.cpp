#include "vantro/models/FileDownloader.h"

#include <QMutexLocker>
#include <QPromise>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace vantro {

/// A caller waiting for a download. Never destroyed under the lock: its stop callback may be waiting for it.
struct FileDownloader::Listener
{
    OnProgress onProgress;
    QPromise<void> promise;
    std::optional<std::stop_callback<std::function<void()>>> stopCallback;

    void end(const std::exception_ptr& failure)
    {
        if (failure)
            promise.setException(failure);
        promise.finish();
    }
};

/// A file being fetched, and its listeners.
struct FileDownloader::PendingDownload
{
    TransferRequest request;
    std::vector<std::shared_ptr<Listener>> listeners; ///< under pendingLock_
    FileTransfer* transfer = nullptr;                 ///< network thread
    bool isStopped = false;                           ///< network thread
};

QCoro::Task<> FileDownloader::transfer(QNetworkAccessManager& manager, PendingPointer download)
{
    std::exception_ptr failure;
    try {
        FileTransfer transfer(manager, files_, options_, download->request,
                              [this, download](const auto& progress) { publish(*download, progress); });
        download->transfer = &transfer;
        if (download->isStopped)
            transfer.stop();
        co_await transfer.run();
    } catch (...) {
        failure = std::current_exception();
    }
    download->transfer = nullptr;
    finish(download, failure);
}

void FileDownloader::stop(PendingDownload& download)
{
    download.isStopped = true;
    if (download.transfer != nullptr)
        download.transfer->stop();
}

FileDownloader::FileDownloader(TransferOptions options) : options_(std::move(options)) {}

FileDownloader::~FileDownloader()
{
    QMutexLocker locker(&pendingLock_);
    for (const auto& entry : pending_)
        network_.run([download = entry.second](auto&) { stop(*download); });
    while (running_ > 0)
        allEnded_.wait(&pendingLock_);
}

QFuture<void> FileDownloader::download(TransferRequest request, OnProgress onProgress, std::stop_token stop)
{
    const auto listener = std::make_shared<Listener>();
    listener->onProgress = std::move(onProgress);
    listener->promise.start();
    QFuture<void> future = listener->promise.future();

    QMutexLocker locker(&pendingLock_);
    PendingPointer& entry = pending_[request.destination];
    const bool isNew = !entry;
    if (isNew) {
        entry = std::make_shared<PendingDownload>();
        entry->request = std::move(request);
        ++running_;
    }
    const PendingPointer download = entry;
    download->listeners.push_back(listener);
    locker.unlock();

    if (isNew)
        network_.run([this, download](QNetworkAccessManager& manager) { transfer(manager, download); });
    // Calls leave() immediately if the stop has already been requested.
    listener->stopCallback.emplace(std::move(stop),
                                   [this, download, waiting = listener.get()] { leave(download, waiting); });
    return future;
}

void FileDownloader::leave(const PendingPointer& download, const Listener* listener)
{
    std::shared_ptr<Listener> leaving;
    {
        const QMutexLocker locker(&pendingLock_);
        const auto position = std::ranges::find(download->listeners, listener, &std::shared_ptr<Listener>::get);
        if (position == download->listeners.end())
            return;
        leaving = std::move(*position);
        download->listeners.erase(position);
        if (download->listeners.empty()) {
            // Later requests start a new download, which waits until this one releases the file.
            if (const auto entry = pending_.find(download->request.destination);
                entry != pending_.end() && entry->second == download)
                pending_.erase(entry);
            network_.run([download](auto&) { FileDownloader::stop(*download); });
        }
    }
    leaving->end(std::make_exception_ptr(ModelDownloadError::cancelled()));
}

void FileDownloader::publish(const PendingDownload& download, const DownloadProgress& progress)
{
    const QMutexLocker locker(&pendingLock_);
    for (const auto& listener : download.listeners) {
        if (listener->onProgress)
            listener->onProgress(progress);
    }
}

void FileDownloader::finish(const PendingPointer& download, const std::exception_ptr& failure)
{
    std::vector<std::shared_ptr<Listener>> listeners;
    {
        const QMutexLocker locker(&pendingLock_);
        listeners.swap(download->listeners);
        if (const auto entry = pending_.find(download->request.destination);
            entry != pending_.end() && entry->second == download)
            pending_.erase(entry);
    }
    for (const auto& listener : listeners)
        listener->end(failure);
    listeners.clear();
    const QMutexLocker locker(&pendingLock_);
    --running_;
    allEnded_.wakeAll();
}

} // namespace vantro
