#include "vantro/ui/window/LazyWindow.h"

#include "platform/ThisProcess.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace vantro {

namespace {

/// Qt's X11 property for showing a window without activating it.
constexpr char withoutActivating[] = "_q_showWithoutActivating";
/// Room for the frame, whose size is not known before the window is shown.
constexpr QSize roomForFrame(16, 96);

} // namespace

/// Reports when the window is closed, as opposed to hidden.
class LazyWindow::View final : public QQuickView
{
public:
    View(QQmlEngine& engine, std::function<void()> closed) : QQuickView(&engine, nullptr), closed_(std::move(closed)) {}

protected:
    void closeEvent(QCloseEvent* event) override
    {
        QQuickView::closeEvent(event);
        if (event->isAccepted())
            QTimer::singleShot(0, this, closed_);
    }

private:
    std::function<void()> closed_;
};

LazyWindow::LazyWindow(QQmlEngine& engine, Workspace& workspace, UserDefaults& defaults, Look look,
                       std::function<Content()> makeContent)
    : engine_(engine)
    , workspace_(workspace)
    , defaults_(defaults)
    , look_(std::move(look))
    , makeContent_(std::move(makeContent))
{
}

LazyWindow::~LazyWindow()
{
    if (view_)
        view_->setSource(QUrl()); // its bindings use the models
}

void LazyWindow::open()
{
    if (!view_)
        makeView();
    view_->setProperty(withoutActivating, false);
    view_->show();
    view_->raise();
    view_->requestActivate();
    workspace_.activateWindow(view_->winId());
}

void LazyWindow::makeView()
{
    content_ = makeContent_();
    view_ = std::make_unique<View>(engine_, [this] { viewClosed(); });
    view_->setTitle(look_.title);
    view_->setResizeMode(QQuickView::SizeRootObjectToView);
    view_->setInitialProperties(content_.properties);
    view_->setSource(look_.source);
    if (QObject* const root = view_->rootObject();
        root != nullptr && root->metaObject()->indexOfSignal("closeRequested()") >= 0)
        QObject::connect(root, SIGNAL(closeRequested()), view_.get(), SLOT(close()));
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize largest = screen->availableSize() - roomForFrame;
    view_->setMinimumSize(look_.minimumSize.boundedTo(largest));
    QRect rect(QPoint(), wantedSize().boundedTo(largest));
    rect.moveCenter(screen->availableGeometry().center());
    view_->setGeometry(rect);
}

QSize LazyWindow::wantedSize() const
{
    const QStringList parts = defaults_.get(look_.rememberedSize).split(QLatin1Char('x'));
    const QSize remembered(parts.value(0).toInt(), parts.value(1).toInt());
    return remembered.isEmpty() ? look_.size : remembered.expandedTo(look_.minimumSize);
}

void LazyWindow::rememberSize()
{
    if (view_->windowStates() == Qt::WindowNoState && view_->size() != wantedSize())
        defaults_.set(look_.rememberedSize, QStringLiteral("%1x%2").arg(view_->width()).arg(view_->height()));
}

void LazyWindow::close()
{
    if (view_)
        view_->close();
}

void LazyWindow::viewClosed()
{
    rememberSize();
    view_->setSource(QUrl());
    view_.reset();
    content_ = {};
    engine_.collectGarbage();
    engine_.trimComponentCache();
    process::giveMemoryBack();
    if (closed_)
        closed_();
}

QObject* LazyWindow::root() const
{
    return view_ ? view_->rootObject() : nullptr;
}

bool LazyWindow::isVisible() const
{
    return view_ && view_->isVisible();
}

bool LazyWindow::orderOut()
{
    formerFront_ = workspace_.frontWindow();
    if (!isVisible() || formerFront_ == view_->winId())
        return false;
    view_->hide();
    return true;
}

void LazyWindow::orderFront()
{
    if (!view_)
        return;
    view_->setProperty(withoutActivating, true);
    view_->show();
    const auto front = workspace_.frontWindow();
    const bool hasMovedOn = front && front != formerFront_ && !workspace_.isOwn(*front);
    // Managers that have just lost the launcher may choose the newest window against its wish.
    if (!hasMovedOn && formerFront_ && workspace_.windowExists(*formerFront_))
        workspace_.activateWindow(*formerFront_);
}

} // namespace vantro
