#include "vantro/ui/hud/PasteHUDWindow.h"

#include "vantro/ui/style/PanelShape.h"
#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QScreen>
#include <QTimer>

#include <utility>

using namespace std::chrono_literals;

void qml_register_types_Vantro_Hud();

namespace vantro {

namespace {

constexpr int outset = 40;
constexpr int cornerRadius = 9;
constexpr auto animationTime = 320ms;
constexpr auto visibleTime = 1500ms;
constexpr auto readingTimePerCharacter = 60ms;
constexpr QRect frameWithoutScreen(0, 0, 1440, 900);

QRect centred(QSize size, QPoint centre)
{
    QRect rect(QPoint(), size);
    rect.moveCenter(centre);
    return rect;
}

QPoint centreOfMainScreen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return (screen != nullptr ? screen->availableGeometry() : frameWithoutScreen).center();
}

} // namespace

PasteHUDWindow::PasteHUDWindow(QQmlEngine& engine, Workspace& workspace, Clock& clock)
    : QQuickView(&engine, nullptr)
    , workspace_(workspace)
    , clock_(clock)
{
    keepModule(qml_register_types_Vantro_Hud);
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowTransparentForInput |
             Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("paste-hud"));
    setResizeMode(SizeRootObjectToView);
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Hud/PasteHud.qml")));
    connect(&workspace_, &Workspace::frontWindowChanged, this, &PasteHUDWindow::followFront);
}

PasteHUDWindow::~PasteHUDWindow()
{
    setSource(QUrl()); // its bindings use the model, which is destroyed first
}

std::chrono::milliseconds PasteHUDWindow::showHUD(std::optional<QRect> anchor, std::function<QString()> keys,
                                                  const QString& reason)
{
    keys_ = std::move(keys);
    model_.title = keys_ ? keys_() : QString();
    model_.isSentence = false;
    model_.caption = keys_ ? tr("to paste") : QString();
    model_.reason = reason;
    present(anchor, {});
    return dismissAfterReading(reason);
}

std::chrono::milliseconds PasteHUDWindow::showNews(const QString& title, const QString& caption)
{
    keys_ = nullptr;
    model_.title = title;
    model_.isSentence = true;
    model_.caption = caption;
    model_.reason.clear();
    present(std::nullopt, {});
    return dismissAfterReading(caption);
}

std::chrono::milliseconds PasteHUDWindow::dismissAfterReading(const QString& text)
{
    const auto shownTime = animationTime + visibleTime + readingTimePerCharacter * text.size();
    clock_.callAfter(shownTime, dismissWorkItem_.get(), [this] {
        if (standing_)
            showStanding();
        else
            dismiss();
    });
    cover(true);
    return shownTime;
}

/// The keys are for the window that the user is in when he reads them.
void PasteHUDWindow::followFront()
{
    if (!keys_ || !isVisible() || model_.title == keys_())
        return;
    model_.title = keys_();
    Q_EMIT model_.changed();
    place(QRect(geometry().center(), QSize()));
}

void PasteHUDWindow::showOffer(std::optional<QRect> anchor, const QString& title, const QString& caption, Offer offer)
{
    standing_ = Standing{anchor, title, caption, std::move(offer)};
    isCovered_ = false;
    showStanding();
}

void PasteHUDWindow::showNotice(const QString& title)
{
    showOffer(std::nullopt, title, {}, {});
}

void PasteHUDWindow::showStanding()
{
    keys_ = nullptr;
    model_.title = standing_->title;
    model_.isSentence = true;
    model_.caption = standing_->caption;
    model_.reason.clear();
    present(standing_->anchor, standing_->offer.accepted);
    cover(false);
}

void PasteHUDWindow::cover(bool isCovered)
{
    if (standing_ && std::exchange(isCovered_, isCovered) != isCovered && standing_->offer.covered)
        standing_->offer.covered(isCovered);
}

void PasteHUDWindow::withdraw()
{
    const bool isShown = standing_ && !isCovered_;
    standing_.reset();
    if (isShown)
        dismiss();
}

void PasteHUDWindow::present(std::optional<QRect> anchor, std::function<void()> clicked)
{
    dismissWorkItem_ = std::make_unique<QObject>();
    clicked_ = std::move(clicked);
    model_.isButton = clicked_ != nullptr;
    setFlag(Qt::WindowTransparentForInput, !model_.isButton);
    setCursor(model_.isButton ? Qt::PointingHandCursor : Qt::ArrowCursor);
    Q_EMIT model_.changed();
    // Growing and fading needs a window that is larger than what it shows, and so a compositor. What takes clicks must
    // not be larger.
    model_.isAnimated = workspace_.isCompositing() && !model_.isButton;
    const QSize restingSize = place(anchor.value_or(QRect(centreOfMainScreen(), QSize())));
    model_.startSize = model_.isAnimated && anchor ? anchor->size() : restingSize;
    model_.isSettled = false;
    Q_EMIT model_.changed();
    if (!workspace_.showPanel(*this, Workspace::PanelKeyboard::none)) {
        show();
        raise(); // an alert that came since may lie there
    }
    QTimer::singleShot(0, dismissWorkItem_.get(), [this] {
        model_.isSettled = true;
        Q_EMIT model_.changed();
    });
}

/// Gives the window the size that it needs around the middle of @p content, from which it may grow. Returns the size of
/// what it shows.
QSize PasteHUDWindow::place(QRect content)
{
    const QSize restingSize = rootObject()->property("restingSize").toSizeF().toSize();
    QRect frame = centred(restingSize, content.center());
    if (model_.isAnimated)
        frame = frame.united(content).adjusted(-outset, -outset, outset, outset);
    setGeometry(frame);
    roundCorners(*this, cornerRadius, model_.isAnimated);
    return restingSize;
}

void PasteHUDWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    // What it calls may show something else here.
    if (const auto clicked = std::exchange(clicked_, nullptr))
        clicked();
}

void PasteHUDWindow::dismiss()
{
    clicked_ = nullptr;
    model_.isSettled = false;
    Q_EMIT model_.changed();
    clock_.callAfter(animationTime, dismissWorkItem_.get(), [this] { hide(); });
}

} // namespace vantro
