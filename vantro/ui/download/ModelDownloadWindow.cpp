#include "vantro/ui/download/ModelDownloadWindow.h"

#include "base/Notifications.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

void qml_register_types_Vantro_Download();

namespace vantro {

ModelDownloadWindow::ModelDownloadWindow(QQmlEngine& engine, ModelDownloader& downloader,
                                         NotificationCenter& notifications)
    : QQuickView(&engine, nullptr)
    , model_(downloader)
{
    keepModule(qml_register_types_Vantro_Download);
    setFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
             Qt::WindowMinimizeButtonHint);
    setTitle(tr("Speech model"));
    setResizeMode(SizeRootObjectToView);
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Download/ModelDownload.qml")));
    connect(rootObject(), SIGNAL(closed()), this, SLOT(close()));
    connect(rootObject(), &QQuickItem::implicitHeightChanged, this, &ModelDownloadWindow::fitToContent);
    connect(&model_, &ModelDownloadModel::succeeded, this,
            [&notifications] { notifications.post(notification::modelDownloaded); });
}

ModelDownloadWindow::~ModelDownloadWindow()
{
    setSource(QUrl()); // what it shows is bound to the model, which goes first
}

void ModelDownloadWindow::present(const TranscriptionModel& model, const QString& reason)
{
    if (!model_.isRunning()) {
        model_.setModel(model, reason);
        model_.retry();
    }
    fitToContent();
    if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr && !isVisible()) {
        QRect rect(QPoint(), size());
        rect.moveCenter(screen->availableGeometry().center());
        setGeometry(rect);
    }
    show();
    raise();
    requestActivate();
}

void ModelDownloadWindow::fitToContent()
{
    const QSize wanted(static_cast<int>(rootObject()->implicitWidth()),
                       static_cast<int>(rootObject()->implicitHeight()));
    setMinimumSize(wanted);
    setMaximumSize(wanted);
    resize(wanted);
}

bool ModelDownloadWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Close)
        model_.cancel();
    return QQuickView::event(event);
}

} // namespace vantro
