#include "KeyboardShortcuts/RecorderCocoa.h"

#include "platform/KeyCode.h"
#include "platform/Wording.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace vantro {

namespace {

/// The modifier of a modifier key itself; Qt reports the state from before the event.
std::uint32_t modifierOfKey(int key)
{
    switch (key) {
    case Qt::Key_Control:
        return Modifier::command;
    case Qt::Key_Shift:
        return Modifier::shift;
    case Qt::Key_Alt:
        return Modifier::option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Modifier::control;
    default:
        return 0;
    }
}

} // namespace

const QString RecorderCocoa::recorderActiveStatusDidChange =
    QStringLiteral("KeyboardShortcuts_recorderActiveStatusDidChange");

RecorderCocoa::RecorderCocoa(KeyboardShortcuts& shortcuts, const HotKeyManager& hotKeys,
                             const DesktopShortcuts& desktop, NotificationCenter& notifications,
                             const KeyboardShortcuts::Name& name)
    : shortcuts_(shortcuts)
    , hotKeys_(hotKeys)
    , notifications_(notifications)
    , name_(name)
    , validator_(shortcuts, desktop)
    , nameObservation_(notifications.observe(KeyboardShortcuts::shortcutByNameDidChange, [this](const auto& userInfo) {
        if (userInfo.value(QStringLiteral("name")) == name_.rawValue)
            Q_EMIT changed();
    }))
{
    connect(&shortcuts_, &KeyboardShortcuts::shortcutFailed, this, &RecorderCocoa::changed);
    connect(&shortcuts_, &KeyboardShortcuts::shortcutRecovered, this, &RecorderCocoa::changed);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { endRecording(); });
}

RecorderCocoa::~RecorderCocoa()
{
    if (isRecording_)
        shortcuts_.resume();
}

void RecorderCocoa::setShortcutName(const QString& rawName)
{
    if (rawName == name_.rawValue)
        return;
    endRecording();
    refusal_.reset();
    name_ = rawName == KeyboardShortcuts::Name::stopRecordingAndCloseModal.rawValue
                ? KeyboardShortcuts::Name::stopRecordingAndCloseModal
                : KeyboardShortcuts::Name{rawName, std::nullopt};
    Q_EMIT changed();
}

QString RecorderCocoa::text() const
{
    if (accepted_)
        return wording::shownKeys(accepted_->displayText());
    if (isRecording_)
        return wording::shownKeys(modifierText(heldModifiers_));
    const auto shortcut = shortcuts_.shortcut(name_);
    return shortcut ? wording::shownKeys(shortcut->displayText()) : QString();
}

QString RecorderCocoa::message() const
{
    if (refusal_)
        return refusal_->message;
    if (isRecording_)
        return {};
    if (const auto failure = shortcuts_.failure(name_))
        return *failure;
    return shortcuts_.howToBind(name_).value_or(QString());
}

void RecorderCocoa::beginRecording()
{
    if (std::exchange(isRecording_, true))
        return;
    heldModifiers_ = 0;
    refusal_.reset();
    shortcuts_.suspend();
    qGuiApp->installEventFilter(this);
    notifications_.post(recorderActiveStatusDidChange, {{QStringLiteral("isActive"), true}});
    Q_EMIT changed();
}

void RecorderCocoa::endRecording()
{
    if (!std::exchange(isRecording_, false))
        return;
    qGuiApp->removeEventFilter(this);
    if (const auto taken = std::exchange(accepted_, std::nullopt))
        store(taken);
    shortcuts_.resume();
    notifications_.post(recorderActiveStatusDidChange, {{QStringLiteral("isActive"), false}});
    Q_EMIT changed();
}

void RecorderCocoa::clear()
{
    accepted_.reset();
    endRecording();
    refusal_.reset();
    store(std::nullopt);
    Q_EMIT changed();
}

void RecorderCocoa::useAnyway()
{
    if (!canForce())
        return;
    endRecording();
    refusal_.reset();
    store(refused_);
    Q_EMIT changed();
}

void RecorderCocoa::store(const std::optional<KeyboardShortcuts::Shortcut>& shortcut)
{
    shortcuts_.setShortcut(name_, shortcut);
    if (onChange_)
        onChange_(shortcut);
}

bool RecorderCocoa::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return true;
    case QEvent::KeyPress:
        return keyPressed(static_cast<const QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        keyReleased(static_cast<const QKeyEvent&>(*event));
        return true;
    default:
        return false;
    }
}

bool RecorderCocoa::keyPressed(const QKeyEvent& event)
{
    if (event.isAutoRepeat() || accepted_)
        return true;
    if (const auto modifier = modifierOfKey(event.key())) {
        heldModifiers_ = Modifier::fromQt(event.modifiers()) | modifier;
        Q_EMIT changed();
        return true;
    }
    const std::uint32_t modifiers = Modifier::fromQt(event.modifiers());
    if (modifiers == 0 && editingKeyPressed(event.key()))
        return event.key() != Qt::Key_Tab;
    if (event.key() == Qt::Key_Backtab) {
        endRecording();
        return false;
    }
    if (const auto keyCode = hotKeys_.keyCodeOf(event.nativeScanCode()))
        consider({{*keyCode}, modifiers});
    return true;
}

bool RecorderCocoa::editingKeyPressed(int key)
{
    switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_Tab:
        endRecording();
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        clear();
        return true;
    default:
        return false;
    }
}

// The combination is taken on release: an active hot key would fire on it.
void RecorderCocoa::keyReleased(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return;
    if (const auto modifier = modifierOfKey(event.key())) {
        heldModifiers_ = Modifier::fromQt(event.modifiers()) & ~modifier;
        Q_EMIT changed();
    } else if (accepted_ && hotKeys_.keyCodeOf(event.nativeScanCode()) == accepted_->carbonKeyCode) {
        endRecording();
    }
}

void RecorderCocoa::consider(const KeyboardShortcuts::Shortcut& shortcut)
{
    refusal_ = validator_.refusal(name_, shortcut);
    refused_ = shortcut;
    if (!refusal_)
        accepted_ = shortcut;
    Q_EMIT changed();
}

} // namespace vantro
