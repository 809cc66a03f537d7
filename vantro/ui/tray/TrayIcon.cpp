#include "vantro/ui/tray/TrayIcon.h"

#include <QIcon>
#include <QTimer>

namespace vantro {

namespace {

QString iconFile(const QString& name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

/// A tray that draws from the icon theme also paints symbolic icons in its own colour; into one that embeds windows
/// goes a picture that stands out on light and dark.
QIcon pictureFor(TrayIcon::State state, TrayHost::Kind kind)
{
    const QString name =
        state == TrayIcon::State::idle ? QStringLiteral("com.vantro.app") : QStringLiteral("com.vantro.app-recording");
    const QIcon fallback(iconFile(name));
    const QString symbolic = name + QStringLiteral("-symbolic");
    if (kind == TrayHost::Kind::statusNotifier && QIcon::hasThemeIcon(symbolic))
        return QIcon::fromTheme(symbolic);
    return fallback;
}

} // namespace

TrayIcon::TrayIcon(TrayHost& host) : host_(host)
{
    makeMenu();
    connect(&host_, &TrayHost::kindChanged, this, &TrayIcon::followHost);
    followHost();
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::makeMenu()
{
    dictate_ = menu_.addAction(tr("Dictate"), this, [this] {
        // Not before the menu has let go of the keyboard.
        QTimer::singleShot(0, this, &TrayIcon::dictateRequested);
    });
    menu_.addSeparator();
    menu_.addAction(tr("History"), this, &TrayIcon::historyRequested);
    menu_.addAction(tr("Settings"), this, &TrayIcon::settingsRequested);
    menu_.addAction(tr("Models"), this, &TrayIcon::modelsRequested);
    menu_.addSeparator();
    menu_.addAction(tr("Check for Updates"), this, &TrayIcon::updateCheckRequested);
    menu_.addAction(tr("Report an Error"), this, &TrayIcon::errorReportRequested);
    menu_.addAction(tr("Send Feedback"), this, &TrayIcon::feedbackRequested);
    menu_.addSeparator();
    menu_.addAction(tr("About vantro"), this, &TrayIcon::aboutRequested);
    menu_.addAction(tr("Quit"), this, &TrayIcon::quitRequested);
}

void TrayIcon::followHost()
{
    // Qt looks for a tray of the newer kind once, when the first icon is made, and then follows that kind through its
    // restarts. So the icon is made when there is one to find.
    if (host_.kind() == TrayHost::Kind::none)
        return;
    if (!icon_) {
        icon_ = std::make_unique<QSystemTrayIcon>();
        icon_->setContextMenu(&menu_);
        connect(icon_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                Q_EMIT settingsRequested();
            else if (reason == QSystemTrayIcon::MiddleClick)
                Q_EMIT dictateRequested();
        });
    }
    update();
    icon_->show();
}

void TrayIcon::setState(State state)
{
    state_ = state;
    update();
}

void TrayIcon::setShortcut(const QString& shortcut)
{
    shortcut_ = shortcut;
    update();
}

void TrayIcon::update()
{
    const QString name = tr("Dictate");
    // The shortcut is told, not assigned: it belongs to the whole desktop.
    dictate_->setText(shortcut_.isEmpty() ? name : name + QLatin1Char('\t') + shortcut_);
    dictate_->setEnabled(state_ == State::idle);
    if (!icon_)
        return;
    icon_->setIcon(pictureFor(state_, host_.kind()));
    switch (state_) {
    case State::idle:
        icon_->setToolTip(shortcut_.isEmpty() ? QStringLiteral("vantro")
                                              : tr("vantro: press %1 and speak").arg(shortcut_));
        break;
    case State::recording:
        icon_->setToolTip(tr("vantro is listening"));
        break;
    case State::processing:
        icon_->setToolTip(tr("vantro is transcribing"));
        break;
    }
}

} // namespace vantro
