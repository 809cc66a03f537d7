#include "vantro/ui/tray/TrayIcon.h"

#include <QIcon>
#include <QTimer>

namespace vantro {

namespace {

QString iconFile(const QString& name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

/// A StatusNotifier tray recolours symbolic icons from the icon theme; an embedded window needs an icon that works on
/// light and dark.
QIcon pictureFor(TrayIcon::State state, TrayHost::Kind kind)
{
    const QString name =
        state == TrayIcon::State::idle ? QStringLiteral("com.vantro.app") : QStringLiteral("com.vantro.app-recording");
    const QString symbolic = name + QStringLiteral("-symbolic");
    if (kind == TrayHost::Kind::statusNotifier && QIcon::hasThemeIcon(symbolic))
        return QIcon::fromTheme(symbolic);
    return QIcon(iconFile(name));
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
        // Deferred until the menu has released its keyboard grab.
        QTimer::singleShot(0, this, &TrayIcon::dictateRequested);
    });
    finish_ = menu_.addAction(tr("End Recording"), this, &TrayIcon::finishRequested);
    cancel_ = menu_.addAction(tr("Cancel Dictation"), this, &TrayIcon::cancelRequested);
    menu_.addSeparator();
    recent_ = menu_.addMenu(tr("Copy a Recent Dictation"));
    microphones_ = menu_.addMenu(tr("Microphone"));
    modes_ = menu_.addMenu(tr("Mode"));
    menu_.addSeparator();
    menu_.addAction(tr("History"), this, &TrayIcon::historyRequested);
    menu_.addAction(tr("Notes"), this, &TrayIcon::notesRequested);
    private_ = menu_.addAction(tr("Private Session"), this, &TrayIcon::privateRequested);
    private_->setCheckable(true);
    menu_.addSeparator();
    menu_.addAction(tr("Settings"), this, &TrayIcon::settingsRequested);
    menu_.addAction(tr("Models"), this, &TrayIcon::modelsRequested);
    menu_.addAction(tr("First Steps"), this, &TrayIcon::guideRequested);
    menu_.addSeparator();
    menu_.addAction(tr("Check for Updates"), this, &TrayIcon::updateCheckRequested);
    menu_.addAction(tr("Report an Error"), this, &TrayIcon::errorReportRequested);
    menu_.addAction(tr("Send Feedback"), this, &TrayIcon::feedbackRequested);
    menu_.addSeparator();
    menu_.addAction(tr("About vantro"), this, &TrayIcon::aboutRequested);
    menu_.addAction(tr("Quit"), this, &TrayIcon::quitRequested);
    connect(&menu_, &QMenu::aboutToShow, this, &TrayIcon::aboutToShow);
}

void TrayIcon::setOffers(const Offers& offers)
{
    recent_->clear();
    for (int i = 0; i < offers.recent.size(); ++i)
        // A menu would underline the letter after a single one.
        recent_->addAction(QString(offers.recent[i]).replace(QLatin1Char('&'), QLatin1String("&&")), this,
                           [this, i] { Q_EMIT copyRequested(i); });
    recent_->setEnabled(!offers.recent.isEmpty());
    fill(*microphones_, offers.microphones, &TrayIcon::microphoneRequested);
    fill(*modes_, offers.modes, &TrayIcon::modeRequested);
}

void TrayIcon::fill(QMenu& menu, const std::vector<Choice>& choices, void (TrayIcon::*requested)(int))
{
    menu.clear();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        QAction* const action = menu.addAction(QString(choices[i].name).replace(QLatin1Char('&'), QLatin1String("&&")),
                                               this, [this, requested, i] {
                                                   Q_EMIT(this->*requested)
                                                   (static_cast<int>(i));
                                               });
        action->setCheckable(true);
        action->setChecked(choices[i].isChosen);
    }
    menu.setEnabled(!choices.empty());
}

void TrayIcon::followHost()
{
    icon_.reset();
    embedded_.reset();
    if (host_.kind() == TrayHost::Kind::statusNotifier)
        makeIcon();
    else if (host_.kind() == TrayHost::Kind::embedding)
        makeEmbeddedIcon();
    update();
}

/// Qt looks for a StatusNotifier tray only once, when the first icon is created, and otherwise uses XEmbed for good. So
/// create a QSystemTrayIcon only while such a tray is present, and use our own icon for XEmbed.
void TrayIcon::makeIcon()
{
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            Q_EMIT settingsRequested();
        else if (reason == QSystemTrayIcon::MiddleClick)
            Q_EMIT dictateRequested();
    });
}

void TrayIcon::makeEmbeddedIcon()
{
    embedded_ = std::make_unique<EmbeddedIcon>(host_, menu_);
    connect(embedded_.get(), &EmbeddedIcon::clicked, this, &TrayIcon::settingsRequested);
    connect(embedded_.get(), &EmbeddedIcon::middleClicked, this, &TrayIcon::dictateRequested);
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

void TrayIcon::setPrivate(bool on)
{
    private_->setChecked(on);
    update();
}

void TrayIcon::update()
{
    const QString name = tr("Dictate");
    // Only shown, not assigned: the shortcut is a global one.
    dictate_->setText(shortcut_.isEmpty() ? name : name + QLatin1Char('\t') + shortcut_);
    dictate_->setVisible(state_ == State::idle);
    finish_->setVisible(state_ == State::recording);
    cancel_->setVisible(state_ != State::idle);
    const QIcon picture = pictureFor(state_, host_.kind());
    if (icon_) {
        icon_->setIcon(picture);
        icon_->setToolTip(toolTip());
        icon_->show();
    }
    if (embedded_) {
        embedded_->setIcon(picture);
        embedded_->setToolTip(toolTip());
    }
}

QString TrayIcon::toolTip() const
{
    switch (state_) {
    case State::idle:
        if (private_->isChecked())
            return tr("vantro: private session, nothing is kept");
        return shortcut_.isEmpty() ? QStringLiteral("vantro") : tr("vantro: press %1 and speak").arg(shortcut_);
    case State::recording:
        return tr("vantro is listening");
    case State::processing:
        return tr("vantro is transcribing");
    }
    Q_UNREACHABLE();
}

} // namespace vantro
