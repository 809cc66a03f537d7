#include "vantro/ui/launcher/Launcher.h"

#include "base/Notifications.h"
#include "vantro/app/Dictation.h"
#include "vantro/ui/style/PanelShape.h"
#include "vantro/ui/style/UiEngine.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

void qml_register_types_Vantro_Launcher();

namespace vantro {

namespace {

constexpr QSize panelSize(500, 200);
constexpr int cornerRadius = 14;

} // namespace

Launcher::Launcher(const Context& context)
    : QQuickView(&context.engine, nullptr)
    , dictation_(context.dictation)
    , shortcuts_(context.shortcuts)
    , workspace_(context.workspace)
    , notifications_(context.notifications)
    , model_(context.dictation, context.clock, context.modes, context.microphone)
{
    keepModule(qml_register_types_Vantro_Launcher);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("vantro"));
    setResizeMode(SizeRootObjectToView);
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Launcher/Launcher.qml")));
    placeOnScreen();
    roundCorners(*this, cornerRadius, workspace_.isCompositing());

    // On release, so that the key release does not reach the window that receives the text.
    inFocusActionObserver_ =
        shortcuts_.onKeyUp(KeyboardShortcuts::Name::stopRecordingAndCloseModal, *this, [this] { dictation_.stop(); });
    cancelObserver_ =
        shortcuts_.onKeyUp(KeyboardShortcuts::Name::cancelDictation, *this, [this] { cancelOperation(); });
    // Focus events also arrive when a hot key merely fires, so follow the front window instead.
    connect(&workspace_, &Workspace::frontWindowChanged, this, &Launcher::followKeyboard);
    logger_.debug(QStringLiteral("I appeared"));
}

Launcher::~Launcher()
{
    closePanel();
}

void Launcher::placeOnScreen()
{
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const int top = area.top() + area.height() * 2 / 3;
    const int lowest = area.bottom() - panelSize.height();
    setGeometry(QRect(QPoint(area.center().x() - panelSize.width() / 2, std::min(top, lowest)), panelSize));
}

void Launcher::makeKeyAndOrderFront()
{
    const QString stopKeys = keysOf(KeyboardShortcuts::Name::stopRecordingAndCloseModal);
    model_.setEndingHint(tr("<%1> Start transcription").arg(stopKeys), tr("Esc Cancel"));
    show();
    raise();
    requestActivate();
    workspace_.activateWindow(winId());
    followKeyboard();
}

void Launcher::orderFront()
{
    model_.setEndingHint(tr("Release %1 to transcribe").arg(keysOf(KeyboardShortcuts::Name::openModal)),
                         tr("Esc Cancel"));
    connect(&dictation_, &Dictation::stateChanged, this, &Launcher::followState);
    setFlag(Qt::WindowDoesNotAcceptFocus);
    show();
    raise();
}

/// Without the keyboard, Escape belongs to the window in front as soon as the shortcut is released.
void Launcher::followState()
{
    if (dictation_.state() > Dictation::State::recording)
        model_.setEndingHint({}, {});
}

QString Launcher::keysOf(const KeyboardShortcuts::Name& name) const
{
    const auto shortcut = shortcuts_.shortcut(name);
    return shortcut ? shortcut->displayText() : QString();
}

void Launcher::followKeyboard()
{
    if (isClosed_)
        return;
    const bool hasKeyboard = workspace_.frontWindow() == std::optional<WindowID>(winId());
    if (hasKeyboard && !isKey_)
        becomeKey();
    else if (!hasKeyboard && isKey_)
        closePanel();
}

void Launcher::becomeKey()
{
    logger_.debug(QStringLiteral("Showing main window"));
    isKey_ = true;
    shortcuts_.enable({KeyboardShortcuts::Name::stopRecordingAndCloseModal});
    if (escapeCancels())
        shortcuts_.enable({KeyboardShortcuts::Name::cancelDictation});
}

/// Not when the user has chosen Escape to end recordings.
bool Launcher::escapeCancels() const
{
    return shortcuts_.shortcut(KeyboardShortcuts::Name::stopRecordingAndCloseModal) !=
           KeyboardShortcuts::Name::cancelDictation.defaultShortcut;
}

void Launcher::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        isEscapeDown_ = true; // pressed before it was a hot key
    else if (!handleDigit(event->text()))
        QQuickView::keyPressEvent(event);
}

void Launcher::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && isEscapeDown_ && escapeCancels())
        cancelOperation();
    else
        QQuickView::keyReleaseEvent(event);
}

bool Launcher::handleDigit(const QString& characters)
{
    bool isNumber = false;
    const int number = characters.toInt(&isNumber);
    if (!isNumber || number < 1 || number > 5)
        return false;
    model_.chooseMode(number - 1);
    return true;
}

void Launcher::cancelOperation()
{
    dictation_.cancel();
    closePanel();
}

void Launcher::closeEvent(QCloseEvent* event)
{
    closePanel();
    QQuickView::closeEvent(event);
}

void Launcher::closePanel()
{
    if (isClosed_)
        return;
    isClosed_ = true;
    logger_.debug(QStringLiteral("closing window"));
    shortcuts_.disable({KeyboardShortcuts::Name::stopRecordingAndCloseModal, KeyboardShortcuts::Name::cancelDictation});
    dictation_.cancelRecording();
    inFocusActionObserver_.reset();
    cancelObserver_.reset();
    setSource(QUrl());
    notifications_.post(notification::launcherClosed);
    // The window manager returns the focus to the previous window.
    hide();
}

} // namespace vantro
