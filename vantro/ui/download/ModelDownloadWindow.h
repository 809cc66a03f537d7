#pragma once

#include "base/NotificationCenter.h"
#include "vantro/ui/download/ModelDownloadModel.h"
#include "vantro/ui/style/Dialog.h"

namespace vantro {

/// Downloads a model before anyone's eyes: name, size, bar, what is going on, cancel and retry. Posts
/// "download:model:success" when the model is ready. Closing it stops the download; what was fetched is kept. Main
/// thread.
class ModelDownloadWindow final : public Dialog
{
    Q_OBJECT
public:
    ModelDownloadWindow(QQmlEngine& engine, ModelDownloader& downloader, NotificationCenter& notifications);
    ~ModelDownloadWindow() override;

    /// Begins the download, or goes on with it, and comes forward. @p reason: why a model that was there is fetched
    /// again, empty else.
    void present(const TranscriptionModel& model, const QString& reason);

protected:
    bool event(QEvent* event) override;

private:
    ModelDownloadModel model_;
};

} // namespace vantro
