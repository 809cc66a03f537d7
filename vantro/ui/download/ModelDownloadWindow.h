#pragma once

#include "vantro/ui/download/ModelDownloadModel.h"
#include "vantro/ui/style/Dialog.h"

namespace vantro {

/// Downloads a model with visible progress, cancel and retry. The download goes on when the window is closed. Main
/// thread.
class ModelDownloadWindow final : public Dialog
{
    Q_OBJECT
public:
    ModelDownloadWindow(QQmlEngine& engine, Clock& clock, DownloadQueue& queue);
    ~ModelDownloadWindow() override;

    /// Starts or resumes the download and brings the window up as presentUnasked() does. @p reason: why the model has
    /// to be downloaded again; may be empty.
    void present(const TranscriptionModel& model, const QString& reason);

private:
    ModelDownloadModel model_;
};

} // namespace vantro
