#pragma once

#include "base/NotificationCenter.h"
#include "vantro/ui/download/ModelDownloadModel.h"
#include "vantro/ui/style/Dialog.h"

namespace vantro {

/// Downloads a model with visible progress, cancel and retry. Posts "download:model:success" when the model is ready.
/// Closing the window stops the download but keeps what has been downloaded. Main thread.
class ModelDownloadWindow final : public Dialog
{
    Q_OBJECT
public:
    ModelDownloadWindow(QQmlEngine& engine, ModelDownloader& downloader, NotificationCenter& notifications);
    ~ModelDownloadWindow() override;

    /// Starts or resumes the download and brings the window to the front. @p reason: why the model has to be downloaded
    /// again; may be empty.
    void present(const TranscriptionModel& model, const QString& reason);

protected:
    bool event(QEvent* event) override;

private:
    ModelDownloadModel model_;
};

} // namespace vantro
