#include "vantro/ui/download/ModelDownloadWindow.h"

#include "vantro/ui/style/UiEngine.h"

void qml_register_types_Vantro_Download();

namespace vantro {

ModelDownloadWindow::ModelDownloadWindow(QQmlEngine& engine, Clock& clock, DownloadQueue& queue)
    : Dialog(engine, clock, tr("Speech model"), Qt::WindowMinimizeButtonHint)
    , model_(queue)
{
    keepModule(qml_register_types_Vantro_Download);
    load(QStringLiteral("Download/ModelDownload.qml"), {{QStringLiteral("model"), QVariant::fromValue(&model_)}});
}

ModelDownloadWindow::~ModelDownloadWindow()
{
    setSource(QUrl()); // its bindings use the model, which is destroyed first
}

void ModelDownloadWindow::present(const TranscriptionModel& model, const QString& reason)
{
    model_.setModel(model, reason);
    model_.retry();
    presentUnasked();
}

} // namespace vantro
