#include "vantro/ui/launcher/Launcher.h"

#include "base/Notifications.h"
#include "platform/Wording.h"
#include "vantro/app/Dictation.h"
#include "vantro/ui/style/PanelShape.h"
#include "vantro/ui/style/UiEngine.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

void qml_register_types_Vantro_Launcher();

namespace vantro {

namespace {

constexpr int cornerRadius = 14;
constexpr int edgeDistance = 24;
/// Between what the user does and the window manager's answer to it.
constexpr auto answerLimit = 500ms;
constexpr auto fightSpan = 2000ms;
constexpr std::size_t fightRounds = 3;
constexpr int modeKeys = 9;
/// The X key code of the first key in the row of digits. Some layouts have the digits there only with Shift.
constexpr quint32 firstDigitKey = 10;

/// 1 to 9, or 0 for another key.
int modeNumber(const QKeyEvent& key)
{
    const int typed = key.text().toInt();
    if (typed >= 1 && typed <= modeKeys)
        return typed;
    const quint32 place = key.nativeScanCode();
    const bool isInRow =
        key.modifiers() == Qt::NoModifier && place >= firstDigitKey && place < firstDigitKey + modeKeys;
    return isInRow ? static_cast<int>(place - firstDigitKey) + 1 : 0;
}

bool isAsSpokenKey(const QKeyEvent& key)
{
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && !key.isAutoRepeat();
}

} // namespace

Launcher::Launcher(const Context& context)
    : QQuickView(&context.engine, nullptr)
    , dictation_(context.dictation)
    , shortcuts_(context.shortcuts)
    , workspace_(context.workspace)
    , notifications_(context.notifications)
    , clock_(context.clock)
    , model_(context.dictation, context.clock, context.modes, context.microphone, context.note)
{
    keepModule(qml_register_types_Vantro_Launcher);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("vantro"));
    setResizeMode(SizeRootObjectToView);
    setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model_)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Launcher/Launcher.qml")));
    // Queued: closing deletes what the click came from.
    connect(rootObject(), SIGNAL(finishRequested()), &dictation_, SLOT(stop()), Qt::QueuedConnection);
    connect(rootObject(), SIGNAL(asSpokenRequested()), &dictation_, SLOT(deliverAsSpoken()), Qt::QueuedConnection);
    connect(rootObject(), SIGNAL(cancelRequested()), this, SLOT(cancelOperation()), Qt::QueuedConnection);
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
    const QSize panelSize = QSizeF(rootObject()->implicitWidth(), rootObject()->implicitHeight()).toSize();
    const int top = area.top() + area.height() * 2 / 3;
    const int lowest = area.bottom() - edgeDistance - panelSize.height();
    setGeometry(QRect(QPoint(area.center().x() - panelSize.width() / 2, std::min(top, lowest)), panelSize));
}

void Launcher::makeKeyAndOrderFront()
{
    const QString stopKeys = keysOf(KeyboardShortcuts::Name::stopRecordingAndCloseModal);
    model_.setEndingHint(tr("<%1> Start transcription").arg(wording::shownKeys(stopKeys)), cancelHint());
    former_ = workspace_.frontWindow();
    if (!workspace_.showPanel(*this, Workspace::PanelKeyboard::exclusive)) {
        show();
        raise();
        takeKeyboard();
    }
    followKeyboard();
}

void Launcher::takeKeyboard()
{
    requestActivate();
    workspace_.activateWindow(winId());
}

void Launcher::orderFront()
{
    model_.setTakesDigits(false); // they go to the window that has the keyboard
    model_.setEndingHint(
        tr("Release <%1> to transcribe").arg(wording::shownKeys(keysOf(KeyboardShortcuts::Name::openModal))),
        cancelHint());
    connect(&dictation_, &Dictation::stateChanged, this, &Launcher::followState);
    // Past the window manager, which keeps full-screen windows that have the keyboard above everything it manages.
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
    if (workspace_.showPanel(*this, Workspace::PanelKeyboard::none))
        return;
    show();
    raise();
}

QString Launcher::cancelHint() const
{
    return tr("<%1> Cancel").arg(wording::shownKeys(QStringLiteral("Esc")));
}

/// Without the keyboard, Escape belongs to the window in front as soon as the shortcut is released.
void Launcher::followState()
{
    if (dictation_.state() > Dictation::State::recording && !model_.isRewriting())
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
    if (hasKeyboard() && !isKey_)
        becomeKey();
    else if (!hasKeyboard() && isKey_ && !takeBack())
        closePanel();
}

bool Launcher::hasKeyboard() const
{
    return workspace_.frontWindow() == std::optional<WindowID>(winId());
}

/// Another window came to the front. One that the user has not gone to, because the pointer strayed over it or its
/// program opened it, does not end the dictation. Returns false if the launcher has to give way.
bool Launcher::takeBack()
{
    std::erase_if(takenBack_, [now = clock_.now()](Clock::Instant when) { return now - when > fightSpan; });
    if (takenBack_.size() >= fightRounds || !activity_ || activity_->hasActed(answerLimit, latestOwnInput_))
        return false;
    takenBack_.push_back(clock_.now());
    wasNudged_ = true;
    logger_.info(QStringLiteral("Taking the keyboard back"));
    takeKeyboard();
    clock_.callAfter(answerLimit, this, [this] {
        if (!isClosed_ && !hasKeyboard())
            closePanel();
    });
    return true;
}

/// What is done in the launcher itself does not count as going elsewhere.
bool Launcher::event(QEvent* event)
{
    if (event->isInputEvent())
        latestOwnInput_ = std::max(latestOwnInput_, static_cast<QInputEvent*>(event)->timestamp());
    return QQuickView::event(event);
}

void Launcher::becomeKey()
{
    logger_.debug(QStringLiteral("Showing main window"));
    isKey_ = true;
    activity_ = workspace_.watchUser();
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
    else if (isAsSpokenKey(*event) && !dictation_.rewriter().isEmpty())
        isReturnDown_ = true; // its release must not reach the window behind
    else if (!chooseMode(*event))
        QQuickView::keyPressEvent(event);
}

void Launcher::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && isEscapeDown_ && escapeCancels())
        cancelOperation();
    else if (isAsSpokenKey(*event) && std::exchange(isReturnDown_, false))
        dictation_.deliverAsSpoken();
    else
        QQuickView::keyReleaseEvent(event);
}

bool Launcher::chooseMode(const QKeyEvent& key)
{
    const int number = modeNumber(key);
    if (number == 0)
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
    activity_.reset();
    // Otherwise the window manager would pick the window that came to the front meanwhile.
    if (wasNudged_ && former_ && hasKeyboard() && workspace_.windowExists(*former_))
        workspace_.activateWindow(*former_);
    setSource(QUrl());
    notifications_.post(notification::launcherClosed);
    // The window manager returns the focus to the previous window.
    hide();
}

} // namespace vantro
