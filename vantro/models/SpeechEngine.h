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

/// One speech engine: its recogniser and the files of its models. Main thread; what takes long runs on threads of its
/// own. Nothing is started before it is needed.
class SpeechEngine : public TranscriptionProviding
{
public:
    /// Which models of the catalogue it runs.
    [[nodiscard]] virtual TranscriptionEngine kind() const = 0;
    /// Its name in the log.
    [[nodiscard]] virtual QString label() const = 0;

    /// Reads at most a file's header.
    [[nodiscard]] virtual ModelStatus status(const TranscriptionModel& model) const = 0;
    /// Whether @p model is there and right. The user's copy is removed when it is not, another one is left alone.
    [[nodiscard]] virtual QFuture<ModelCheck> check(const TranscriptionModel& model, Trust trust = Trust::markers) = 0;
    /// Fetches @p model and checks it. Throws ModelDownloadError, or an Error when there is nothing to fetch.
    QCoro::Task<> download(TranscriptionModel model, FileDownloader::OnProgress onProgress, std::stop_token stop);
    /// Removes the user's copy and what was fetched of it; answers how many bytes that freed. Throws Error when it is
    /// being downloaded, or cannot be removed.
    virtual qint64 remove(const TranscriptionModel& model) = 0;
    /// A model for a file that the user named; nothing when it is another engine's.
    [[nodiscard]] virtual std::optional<TranscriptionModel> describe(const QString& file) const = 0;

protected:
    /// A wrong file may have been stored afterwards: the check finds out.
    [[nodiscard]] virtual QFuture<void> startDownload(const TranscriptionModel& model,
                                                      FileDownloader::OnProgress onProgress, std::stop_token stop) = 0;
};

/// The engines of this installation.
class SpeechEngines
{
public:
    /// One for each TranscriptionEngine; they outlive the list. A named file goes to the first that takes it.
    explicit SpeechEngines(std::vector<SpeechEngine*> engines) : engines_(std::move(engines)) {}

    /// The one that runs @p model.
    [[nodiscard]] SpeechEngine& of(const TranscriptionModel& model) const;
    [[nodiscard]] const std::vector<SpeechEngine*>& all() const { return engines_; }

private:
    std::vector<SpeechEngine*> engines_;
};

/// Where model files are searched: first the user's own folder, the only one that is written to, then those in which an
/// administrator can install models for everybody. "vantro/models" below the XDG data folders and below /usr/share.
[[nodiscard]] QStringList modelFolders();

} // namespace vantro
