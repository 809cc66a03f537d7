#include "vantro/ui/download/ModelDownloadWindow.h"

#include "base/Notifications.h"
#include "vantro/ui/style/UiEngine.h"

void qml_register_types_Vantro_Download();

namespace vantro {

ModelDownloadWindow::ModelDownloadWindow(QQmlEngine& engine, ModelDownloader& downloader,
                                         NotificationCenter& notifications)
    : Dialog(engine, tr("Speech model"), Qt::WindowMinimizeButtonHint)
    , model_(downloader)
{
    keepModule(qml_register_types_Vantro_Download);
    load(QStringLiteral("Download/ModelDownload.qml"), {{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    connect(&model_, &ModelDownloadModel::succeeded, this,
            [&notifications] { notifications.post(notification::modelDownloaded); });
}

ModelDownloadWindow::~ModelDownloadWindow()
{
    setSource(QUrl()); // its bindings use the model, which is destroyed first
}

void ModelDownloadWindow::present(const TranscriptionModel& model, const QString& reason)
{
    if (!model_.isRunning()) {
        model_.setModel(model, reason);
        model_.retry();
    }
    Dialog::present();
}

bool ModelDownloadWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Close)
        model_.cancel();
    return Dialog::event(event);
}

} // namespace vantro
