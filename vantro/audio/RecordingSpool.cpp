#include "vantro/audio/RecordingSpool.h"

#include "base/Error.h"
#include "base/Logger.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <tuple>
#include <utility>

namespace vantro {

namespace {

void log(const QString& line)
{
    Logger("RecordingSpool").error(line);
}

std::vector<RecordingFile> openLeft(const QString& folder)
{
    std::vector<RecordingFile> files;
    RecordingFile::removeHidden(folder);
    for (const QString& path : RecordingFile::list(folder)) {
        try {
            auto file = RecordingFile::open(path);
            if (!file)
                continue;
            if (mayHoldSpeech(file->read()))
                files.push_back(std::move(*file));
            else
                file->remove();
        } catch (const Error& error) {
            log(QStringLiteral("Left alone: ") + error.localizedDescription());
        }
    }
    return files;
}

} // namespace

/// The file while it can be written, else the samples. What was written before a failure stays for the next start.
struct Recording::Store
{
    std::optional<RecordingFile> file;
    std::vector<float> samples;
    bool isWhole = true;

    void write(const std::function<void(RecordingFile&)>& change)
    {
        if (isWhole && file)
            attempt(change);
        isWhole = isWhole && file;
    }
    void attempt(const std::function<void(RecordingFile&)>& change)
    {
        try {
            if (file)
                change(*file);
        } catch (const Error& error) {
            log(QStringLiteral("The recording is no longer kept: ") + error.localizedDescription());
            isWhole = false;
        }
    }
};

Recording::Recording(RecordingSpool& spool, QString id, RecordingFile::Header header, std::shared_ptr<Store> store)
    : spool_(spool)
    , id_(std::move(id))
    , header_(std::move(header))
    , store_(std::move(store))
{
}

/// Releases the file on the spool's thread, where it may still be written.
Recording::~Recording()
{
    std::ignore = spool_.executor_.run([store = std::move(store_)]() mutable { store.reset(); });
}

void Recording::follow(std::shared_ptr<const SampleCollector> collector)
{
    collector_ = std::move(collector);
    pulse_ = std::make_unique<QObject>();
    copyNewSamples();
}

void Recording::copyNewSamples()
{
    std::vector<float> fresh = collector_->samplesFrom(copied_);
    copied_ += fresh.size();
    if (!fresh.empty())
        std::ignore = spool_.executor_.run([store = store_, fresh = std::move(fresh)] {
            store->write([&fresh](RecordingFile& file) { file.append(fresh); });
        });
    spool_.clock_.callAfter(RecordingSpool::interval, pulse_.get(), [this] { copyNewSamples(); });
}

void Recording::setMode(ProcessingMode mode)
{
    if (std::exchange(header_.mode, mode) == mode)
        return;
    std::ignore = spool_.executor_.run(
        [store = store_, mode] { store->write([mode](RecordingFile& file) { file.setMode(mode); }); });
}

void Recording::finish(const std::vector<float>& samples)
{
    pulse_.reset();
    collector_.reset();
    mayHoldSpeech_ = vantro::mayHoldSpeech(samples);
    std::ignore = spool_.executor_.run([store = store_, copied = copied_, samples = samples]() mutable {
        store->write([&](RecordingFile& file) { file.append(std::span(samples).subspan(copied)); });
        if (!store->isWhole)
            store->samples = std::move(samples);
    });
}

QCoro::Task<std::vector<float>> Recording::samples() const
{
    const auto reading =
        spool_.executor_.run([store = store_] { return store->isWhole ? store->file->read() : store->samples; });
    co_return co_await reading;
}

void Recording::setHidden(bool hidden)
{
    std::ignore = spool_.executor_.run(
        [store = store_, hidden] { store->attempt([hidden](RecordingFile& file) { file.setHidden(hidden); }); });
}

void Recording::discard()
{
    pulse_.reset();
    collector_.reset();
    std::ignore = spool_.executor_.run([store = store_] {
        if (store->file)
            store->file->remove();
        store->file.reset();
        store->samples = {};
    });
}

RecordingSpool::RecordingSpool(QString folder, Clock& clock) : folder_(std::move(folder)), clock_(clock) {}

QString RecordingSpool::standardFolder()
{
    // Not QStandardPaths, which falls back on a folder that is not memory and outlives the login.
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return folder.startsWith(QLatin1Char('/')) ? folder + QStringLiteral("/vantro") : QString();
}

std::shared_ptr<Recording> RecordingSpool::keep(std::shared_ptr<const SampleCollector> collector, const QString& id,
                                                ProcessingMode mode)
{
    const RecordingFile::Header header{mode, clock_.wallClock()};
    auto store = std::make_shared<Recording::Store>();
    std::ignore = executor_.run([folder = folder_, id, header, store, hasTold = hasToldOfFolder_] {
        try {
            if (folder.isEmpty())
                throw Error(QStringLiteral("XDG_RUNTIME_DIR is not set"));
            store->file = RecordingFile::create(folder, id, header);
        } catch (const Error& error) {
            if (!std::exchange(*hasTold, true))
                log(QStringLiteral("Recordings are not kept: ") + error.localizedDescription());
        }
    });
    std::shared_ptr<Recording> recording(new Recording(*this, id, header, std::move(store)));
    recording->follow(std::move(collector));
    return recording;
}

bool RecordingSpool::isInUse() const
{
    return std::ranges::any_of(RecordingFile::list(folder_), [](const QString& path) {
        try {
            return !RecordingFile::open(path);
        } catch (const Error&) {
            return false;
        }
    });
}

QCoro::Task<std::vector<std::shared_ptr<Recording>>> RecordingSpool::takeLeft()
{
    std::vector<std::shared_ptr<Recording>> recordings;
    if (folder_.isEmpty())
        co_return recordings;
    const auto opening = executor_.run([folder = folder_] {
        std::vector<std::shared_ptr<Recording::Store>> stores;
        for (RecordingFile& file : openLeft(folder)) {
            stores.push_back(std::make_shared<Recording::Store>());
            stores.back()->file = std::move(file);
        }
        return stores;
    });
    const auto stores = co_await opening;
    for (const auto& store : stores)
        recordings.emplace_back(new Recording(*this, store->file->name(), store->file->header(), store));
    co_return recordings;
}

} // namespace vantro
