#include "vantro/ui/hud/PasteHUDWindow.h"

#include "platform/Wording.h"
#include "vantro/ui/style/PanelShape.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

using namespace std::chrono_literals;

void qml_register_types_Vantro_Hud();

namespace vantro {

namespace {

constexpr QSize restingSize(260, 130);
constexpr int outset = 40;
constexpr int cornerRadius = 9;
constexpr auto animationTime = 320ms;
constexpr auto visibleTime = 1500ms;
constexpr QRect frameWithoutScreen(0, 0, 1440, 900);

QRect centredOnMainScreen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    QRect rect(QPoint(), restingSize);
    rect.moveCenter((screen != nullptr ? screen->availableGeometry() : frameWithoutScreen).center());
    return rect;
}

} // namespace

PasteHUDWindow::PasteHUDWindow(QQmlEngine& engine, const Workspace& workspace, Clock& clock)
    : QQuickView(&engine, nullptr)
    , workspace_(workspace)
    , clock_(clock)
{
    keepModule(qml_register_types_Vantro_Hud);
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowTransparentForInput |
             Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("paste-hud"));
    setResizeMode(SizeRootObjectToView);
    model_.shortcut = wording::pasteShortcut();
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Hud/PasteHud.qml")));
}

PasteHUDWindow::~PasteHUDWindow()
{
    setSource(QUrl()); // its bindings use the model, which is destroyed first
}

void PasteHUDWindow::showHUD(std::optional<QRect> anchor)
{
    dismissWorkItem_ = std::make_unique<QObject>();
    const QRect content = anchor.value_or(centredOnMainScreen());
    // The animation needs a window larger than its content, and so a compositor.
    model_.isAnimated = workspace_.isCompositing();
    QRect frame(QPoint(), restingSize);
    frame.moveCenter(content.center());
    if (model_.isAnimated)
        frame = content.adjusted(-outset, -outset, outset, outset);
    setGeometry(frame);
    roundCorners(*this, cornerRadius, model_.isAnimated);
    model_.startSize = model_.isAnimated ? content.size() : restingSize;
    model_.isSettled = false;
    Q_EMIT model_.changed();
    show();
    QTimer::singleShot(0, dismissWorkItem_.get(), [this] {
        model_.isSettled = true;
        Q_EMIT model_.changed();
    });
    clock_.callAfter(animationTime + visibleTime, dismissWorkItem_.get(), [this] { dismiss(); });
}

void PasteHUDWindow::dismiss()
{
    model_.isSettled = false;
    Q_EMIT model_.changed();
    clock_.callAfter(animationTime, dismissWorkItem_.get(), [this] { hide(); });
}

} // namespace vantro
