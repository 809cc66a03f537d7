#pragma once

#include "vantro/models/FileDownloader.h"
#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionProviding.h"

#include <QFuture>
#include <QStringList>

#include <optional>
#include <stop_token>
#include <utility>
#include <vector>

namespace vantro {

/// One speech engine: its recogniser and its model files. Main thread; long operations run on threads of its own.
/// Everything is created on demand.
class SpeechEngine : public TranscriptionProviding
{
public:
    /// Identifies the catalogue models it runs.
    [[nodiscard]] virtual TranscriptionEngine kind() const = 0;
    /// Its name in the log.
    [[nodiscard]] virtual QString label() const = 0;

    /// Reads at most a file's header.
    [[nodiscard]] virtual ModelStatus status(const TranscriptionModel& model) const = 0;
    /// Whether @p model is present and valid. Removes the user's copy if it is invalid, never another one.
    [[nodiscard]] virtual QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust = Trust::markers) = 0;
    /// Fetches and checks @p model. Throws ModelDownloadError, or Error when its URL is unusable.
    QCoro::Task<> download(TranscriptionModel model, FileDownloader::OnProgress onProgress, std::stop_token stop);
    /// Removes the user's copy and any partial download; returns the number of bytes freed. Throws Error while it is
    /// being downloaded or when it cannot be removed.
    virtual qint64 remove(const TranscriptionModel& model) = 0;
    /// A model for the user's file; nullopt when it belongs to another engine.
    [[nodiscard]] virtual std::optional<TranscriptionModel> describe(const QString& file) const = 0;

protected:
    /// Does not validate the stored file; check() does.
    [[nodiscard]] virtual QFuture<void> startDownload(const TranscriptionModel& model,
                                                      FileDownloader::OnProgress onProgress, std::stop_token stop) = 0;
};

/// All engines.
class SpeechEngines
{
public:
    /// One per TranscriptionEngine; they must outlive the list. The first whose describe() accepts a file gets it.
    explicit SpeechEngines(std::vector<SpeechEngine*> engines) : engines_(std::move(engines)) {}

    /// The one that runs @p model.
    [[nodiscard]] SpeechEngine& of(const TranscriptionModel& model) const;
    [[nodiscard]] const std::vector<SpeechEngine*>& all() const { return engines_; }

private:
    std::vector<SpeechEngine*> engines_;
};

/// The folders searched for model files: "vantro/models" below the XDG data folders and /usr/share. The first is the
/// user's own, the only one written to; administrators can install models in the others.
[[nodiscard]] QStringList modelFolders();

} // namespace vantro
